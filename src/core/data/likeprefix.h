#pragma once
// Searches typed into the reference windows match the beginning of a field without regard to
// letter case, as the operator expects from a look-up box. LIKE gives that; the pattern takes
// the typed text literally.
#include <QString>

namespace hfc {

// A LIKE pattern matching texts that begin with prefix; "%", "_" and "\" in it are taken
// literally when the query says "col LIKE ?1 ESCAPE '\'".
QString likePrefix(const QString& prefix);

} // namespace hfc
