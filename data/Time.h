#pragma once

// Times as text, one result at a time.
class CRMTime {
public:
    virtual ~CRMTime() = default;
    // `format` is that of strftime; the time is read in UTC. Empty for a negative time.
    static const char *Format(long timeSec, const char *format);

private:
    static char szTemp[100];
};
