#pragma once
#include "module/records/Words.h"
#include <QDateTime>

namespace GraphModule {

/// The date last searched for, shared by all chart windows.
class CFindDateData {
public:
    bool IsSaveDateTime() const { return m_save != 0; }
    void SetSaveDateTime(bool save) { m_save = save ? 1 : 0; }
    QDateTime GetSavedDateTime() const { return QDateTime::fromSecsSinceEpoch(m_time, Qt::UTC); }
    void SetSavedDateTime(const QDateTime &time) { m_time = static_cast<Word>(time.toSecsSinceEpoch()); }
    Word GetSavedTime() const { return m_time; }
    void SetSavedTime(Word seconds) { m_time = seconds; }

private:
    Word m_save = 0;
    Word m_time = 0;
};

static_assert(sizeof(CFindDateData) == 8, "two words");

} // namespace GraphModule
