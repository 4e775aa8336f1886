#include "contests/groups.h"
#include "contests/contestdef.h"

#include <QStringList>

namespace hfc::contests {

namespace {

bool oneOf(const QString& pref, std::initializer_list<const char*> prefs) {
    for (const char* p : prefs)
        if (pref == QLatin1String(p)) return true;
    return false;
}

} // namespace

bool inGroup(const QString& pref, Group g) {
    switch (g) {
    case Group::Russia:
        return pref.startsWith(QLatin1String("UA"));
    case Group::Belarus:
        return pref == QLatin1String("EU");
    case Group::Japan:
        return oneOf(pref, {"JA", "JD/m", "JD/o"});
    case Group::Italy:
        return oneOf(pref, {"I", "IS", "IT9", "IG9"});
    case Group::Spain:
        return oneOf(pref, {"EA", "EA6", "EA8", "EA9"});
    case Group::France:
        // every entity prefix beginning with "F" is French
        return pref.startsWith(QLatin1Char('F')) || pref == QLatin1String("TK");
    case Group::UK:
        return oneOf(pref, {"G", "GD", "GI", "GJ", "GM", "GM/s", "GU", "GW"});
    case Group::Scand:
        return oneOf(pref,
                     {"JW", "JW/b", "JX", "LA", "OH", "OH0", "OJ0", "OX", "OY", "OZ", "SM", "TF"});
    case Group::WVE:
        return oneOf(pref, {"K", "VE", "KL", "KH6"});
    }
    return false;
}

bool isMaritime(const QString& call) {
    return call.endsWith(QLatin1String("/MM"));
}

bool isPortable(const QString& call) {
    for (const char* s : {"/P", "/M", "/A", "/AM", "/MM"})
        if (call.endsWith(QLatin1String(s))) return true;
    return false;
}

MultScope multScope(const QString& contestcode) {
    return def(contestcode).multScope;
}

bool isLowBand(const QString& band) {
    return band == QLatin1String("1,8") || band == QLatin1String("3,5") ||
           band == QLatin1String("7");
}

QChar areaDigit(const QString& prf) {
    if (prf.isEmpty() || !prf.back().isDigit()) return {};
    return prf.back();
}

} // namespace hfc::contests
