#pragma once
// The combo boxes of the report window that choose the Cabrillo 3.0 categories: which header
// tag each one sets. The export command sets the same boxes from its options.
#include "reports/standard/cabrillo3.h"

#include <array>

namespace hfc {

struct Cabrillo3Box {
    const char* control; // name in the report window
    const char* tag;     // header tag, also the export option in lower case ("--category-power")
    Cabrillo3Category which;
    QString Cabrillo3Header::*field;
};

inline constexpr std::array<Cabrillo3Box, 7> kCabrillo3Boxes{{
    {"cmbcatop", "CATEGORY-OPERATOR", Cabrillo3Category::Operator,
     &Cabrillo3Header::categoryOperator},
    {"cmbcatassist", "CATEGORY-ASSISTED", Cabrillo3Category::Assisted,
     &Cabrillo3Header::categoryAssisted},
    {"cmbcatband", "CATEGORY-BAND", Cabrillo3Category::Band, &Cabrillo3Header::categoryBand},
    {"cmbcatmode", "CATEGORY-MODE", Cabrillo3Category::Mode, &Cabrillo3Header::categoryMode},
    {"cmbcatpower", "CATEGORY-POWER", Cabrillo3Category::Power, &Cabrillo3Header::categoryPower},
    {"cmbcatstation", "CATEGORY-STATION", Cabrillo3Category::Station,
     &Cabrillo3Header::categoryStation},
    {"cmbcattx", "CATEGORY-TRANSMITTER", Cabrillo3Category::Transmitter,
     &Cabrillo3Header::categoryTransmitter},
}};

// Items of the QTC role box, in the order of QtcRole.
inline QStringList qtcRoleItems() {
    return {QStringLiteral("QTC передавал"), QStringLiteral("QTC принимал")};
}

} // namespace hfc
