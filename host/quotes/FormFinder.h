#pragma once
#include "host/quotes/FileForm.h"
#include <QByteArrayList>

namespace desk {

// Finds out from the first lines of a file how it is written. The answer is empty, or says what could not be
// found out.
QString findForm(const QuoteFile &file, const QByteArrayList &lines, FileForm &form);

} // namespace desk
