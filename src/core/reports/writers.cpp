#include "reports/writers.h"

namespace hfc {

QString withTrailingSlash(const QString& folder) {
    return folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
}

} // namespace hfc
