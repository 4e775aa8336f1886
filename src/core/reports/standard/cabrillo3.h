#pragma once
// Cabrillo 3.0 log of one contest, as the sponsors' log robots accept it: the sponsor's CONTEST
// name, the 3.0 category tags, QSO lines in time order with the exchange in the sponsor's
// template order, QTC lines for WAE. ASCII only, CR LF line ends.
#include "log/logrow.h"
#include "reports/writers.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace hfc {

// Whose QTCs the QTC table holds. The QTC frame stores the station the QTC went to in ccall, so
// by default the own station sent them; a station that received them (a European station in
// the CW and phone legs) chooses Received and the two calls of each QTC line swap.
enum class QtcRole { Sent, Received };

struct Cabrillo3Header {
    QString callsign;
    QString contest; // CONTEST:; empty: the table's name for the contest and the log's mode
    QString categoryOperator = QStringLiteral("SINGLE-OP");
    QString categoryAssisted = QStringLiteral("NON-ASSISTED");
    QString categoryBand = QStringLiteral("ALL");
    QString categoryMode = QStringLiteral("CW");
    QString categoryPower = QStringLiteral("LOW");
    QString categoryStation = QStringLiteral("FIXED");
    QString categoryTransmitter = QStringLiteral("ONE");
    QString claimedScore; // its leading whole number is written; none gives 0
    QString operators;    // empty: the callsign
    QString name;
    QStringList address; // one ADDRESS: line each, empty ones left out
    QString createdBy;   // empty: program name and version
    QtcRole qtcRole = QtcRole::Sent;
};

enum class Cabrillo3Category { Operator, Assisted, Band, Mode, Power, Station, Transmitter };

// The values the report window offers for a category tag (all valid Cabrillo 3.0 values that
// make sense for an HF contest), the default first where there is one.
QStringList cabrillo3Choices(Cabrillo3Category which);

// Header the report window starts from: call, score, name and address from the station boxes,
// the band category from the contest's QSOs (one band: that band, else ALL), the mode category
// (CW, SSB or MIXED) and the CONTEST name for the mode most QSOs were made in.
Cabrillo3Header cabrillo3Defaults(const StationBoxes& st, const QString& contestcode,
                                  const QList<LogRow>& rows);

// The Cabrillo 3.0 file. `rows` is the log (any order; rows of other contests are left out),
// `qtcRows` the QTC table rows written by the QTC frame (used for "wae" only; rows with a mode
// in ps1 are copies of log rows and are skipped). The QTC line is ps2 followed by contr:
// time, call and serial of the QSO passed on.
QByteArray cabrillo3File(const Cabrillo3Header& header, const QString& contestcode,
                         const QList<LogRow>& rows, const QList<LogRow>& qtcRows);

// File name of a standard export for an own call: "RZ3DXX.log", "RZ3DXX_P.adi"; characters that
// cannot stand in a file name become "_".
QString standardExportFileName(const QString& ownCall, const QString& extension);

} // namespace hfc
