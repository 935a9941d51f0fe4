#pragma once
// A host for tests of single classes: keeps what was sent, answers what the test scripts.
#include "module/Module.h"

#include <QApplication>
#include <functional>
#include <map>
#include <vector>

class UnitHost {
public:
    struct Message {
        void *target;
        unsigned number;
        int wParam;
        int lParam;
    };

    UnitHost() { current() = this; }
    ~UnitHost() {
        current() = nullptr;
        if (m_attached)
            GetModule()->m_sendMessage = nullptr;
    }
    UnitHost(const UnitHost &) = delete;
    UnitHost &operator=(const UnitHost &) = delete;

    // Makes this the host of the module until the end of the test.
    void attach() {
        GetModule()->m_sendMessage = send;
        m_attached = true;
    }
    static int send(void *target, unsigned number, int wParam, int lParam) {
        UnitHost *host = current();
        host->messages.push_back({target, number, wParam, lParam});
        const auto it = host->answers.find(number);
        return it == host->answers.end() ? host->otherwise : it->second(wParam, lParam);
    }
    int count(unsigned number) const {
        int found = 0;
        for (const Message &message : messages)
            found += message.number == number;
        return found;
    }

    std::map<unsigned, std::function<int(int wParam, int lParam)>> answers;
    int otherwise = 0;
    std::vector<Message> messages;

private:
    static UnitHost *&current() {
        static UnitHost *host = nullptr;
        return host;
    }
    bool m_attached = false;
};

// Widgets, fonts and pictures need an application; one lives until the end of the run.
inline QApplication *testApplication() {
    if (!qApp) {
        static int argc = 1;
        static char name[] = "test";
        static char *argv[] = {name, nullptr};
        qputenv("QT_QPA_PLATFORM", "offscreen");
        new QApplication(argc, argv);
    }
    return qApp;
}
