#pragma once
#include "support/Log.h"

// The two log lines of a handler of input: one at its start, one wherever it ends.
class HandlerTrace {
public:
    // `tag` is "|File|line", as at the end of every line.
    HandlerTrace(const char *handler, const char *tag) : m_handler(handler), m_tag(tag) {
        trace(m_handler + QLatin1String(": start"), m_tag);
    }
    ~HandlerTrace() {
        try {
            trace(m_handler + QLatin1String(": finish"), m_tag);
        } catch (...) {
            // The host's writer may throw; a handler has to end all the same.
        }
    }
    HandlerTrace(const HandlerTrace &) = delete;
    HandlerTrace &operator=(const HandlerTrace &) = delete;

private:
    QString m_handler;
    const char *m_tag;
};
