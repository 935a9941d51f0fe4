#pragma once
#include "host/core/Service.h"

struct coreLogRecord;

namespace desk {

class Journal;

// The log writer (3205) and the lines of the module's file log (3129).
class LogService : public Service {
public:
    LogService(Host &host, Journal &journal);
    ~LogService() override;
    bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) override;

private:
    static int write(const coreLogRecord *record);
    Journal &m_journal;
};

} // namespace desk
