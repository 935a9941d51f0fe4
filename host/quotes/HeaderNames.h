#pragma once
#include "host/quotes/FileForm.h"
#include <QStringList>

namespace desk {

// Gives the columns that are still free the roles that the header's names tell. False when the names tell no
// prices; `side` is set when all bars are of one named side.
bool namePrices(const QStringList &names, std::vector<Column> &columns, std::optional<Side> &side);

} // namespace desk
