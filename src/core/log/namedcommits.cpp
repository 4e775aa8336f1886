#include "log/namedcommits.h"

#include <QMutexLocker>

namespace hfc {

namespace {
// A window nobody types in while the station's log pours in: its reader reads anew instead.
constexpr qsizetype kMaxRows = 100000;
} // namespace

void NamedCommits::naming(const QList<qint64>& rowids) {
    const QMutexLocker lock(&mutex_);
    rows_ += rowids;
    if (rows_.size() > kMaxRows) {
        rows_.clear();
        lost_ = true;
    }
    ++named_;
    ++open_;
}

void NamedCommits::done() {
    const QMutexLocker lock(&mutex_);
    --open_;
}

bool NamedCommits::take(QList<qint64>& rowids) {
    const QMutexLocker lock(&mutex_);
    rowids = rows_;
    const bool any = named_ > 0 && !lost_;
    if (open_ == 0) {
        rows_.clear();
        named_ = 0;
        lost_ = false;
    }
    return any;
}

} // namespace hfc
