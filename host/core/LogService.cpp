#include "host/core/LogService.h"
#include "host/core/Journal.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"

namespace desk {

namespace {

// The writer is a plain function that the module keeps until it is unloaded.
Journal *currentJournal = nullptr;

constexpr int longestLine = 64 * 1024;

} // namespace

LogService::LogService(Host &host, Journal &journal) : Service(host), m_journal(journal) {
    currentJournal = &journal;
    take(coreHandle(), {ToHost::LogWriter, ToHost::LogFileLine});
}

LogService::~LogService() {
    if (currentJournal == &m_journal)
        currentJournal = nullptr;
}

bool LogService::handle(Handle, unsigned message, int wParam, int, int &result) {
    if (!wParam)
        return false;
    if (message == ToHost::LogWriter) {
        *fromWord<coreLogWriter>(wParam) = &LogService::write;
        result = 0;
        return true;
    }
    m_journal.add(Level::Message, QStringLiteral("CLogFile"),
                  readText(fromWord<const Unit16>(wParam), longestLine));
    return true;
}

int LogService::write(const coreLogRecord *record) {
    if (!record || !currentJournal)
        return 1;
    const Level level = Level(record->level);
    if (!currentJournal->accepts(level))
        return 0;
    currentJournal->add(level, readText(record->name, 255), readText(record->text, longestLine));
    return 0;
}

} // namespace desk
