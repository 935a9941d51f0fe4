#pragma once
// The smallest host: it keeps what it is asked, and answers through a function of the test.
#include "module/GraphModule.h"
#include "tests/support/Bytes.h"

#include <functional>
#include <vector>

class RecordingHost {
public:
    struct Asked {
        void *target;
        unsigned message;
        int wParam;
        int lParam;
    };

    explicit RecordingHost(bool withFunction = true) {
        s_current = this;
        Initialize(withFunction ? &RecordingHost::receive : nullptr);
        module.m_interfaceHandle = fromWord<void>(Word(0x4444));
    }
    ~RecordingHost() {
        Initialize(nullptr);
        module.m_interfaceHandle = nullptr;
        s_current = nullptr;
    }

    std::vector<Asked> asked;
    std::function<int(const Asked &)> answer; // null: 0, nothing written

    static void *core() { return fromWord<void>(Word(0x1111)); }

private:
    static void Initialize(HostFunction send) { module.InitializeWrap(send, nullptr, core(), nullptr); }
    static int receive(void *target, unsigned message, int wParam, int lParam) {
        const Asked call{target, message, wParam, lParam};
        s_current->asked.push_back(call);
        return s_current->answer ? s_current->answer(call) : 0;
    }

    static inline RecordingHost *s_current = nullptr;
};
