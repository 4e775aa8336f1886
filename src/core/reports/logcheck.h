#pragma once
// The operator's check of the contest log before sending it: the repeats among its QSOs. The
// format checks of the standard exports (lint.h) and the exchange checks come beside it.
#include "log/logrow.h"

#include <QList>
#include <QStringList>

namespace hfc {

// QSOs of the rows (one contest, in entry order) that repeat an earlier one with the same call
// on the same band in the same mode, each as "30.11.02 12:05 DL1ABC 14: ..." in Russian.
QStringList repeatedQsos(const QList<LogRow>& rowsInEntryOrder);

} // namespace hfc
