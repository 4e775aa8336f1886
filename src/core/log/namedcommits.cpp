#include "log/namedcommits.h"

#include <QMutexLocker>

namespace hfc {

void NamedCommits::naming(const QList<qint64>& rowids) {
    const QMutexLocker lock(&mutex_);
    rows_ += rowids;
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
    const bool any = named_ > 0;
    if (open_ == 0) {
        rows_.clear();
        named_ = 0;
    }
    return any;
}

} // namespace hfc
