#pragma once
// Readers for the two standard formats, written from the format descriptions (Cabrillo 3.0 by
// WWROF, ADIF 3.1 by adif.org) so that the writers are checked against the formats rather than
// against themselves. Each reader collects every rule a file breaks in `errors`.
#include <QByteArray>
#include <QList>
#include <QMap>
#include <QPair>
#include <QString>
#include <QStringList>

namespace fmt {

struct CabrilloQso {
    QString freq, mode, date, time, sentCall, rcvdCall;
    QStringList sent, rcvd; // exchange fields after each call
};

struct CabrilloQtc {
    QString freq, mode, date, time, sender, serial, receiver, qtcTime, qtcCall, qtcSerial;
};

struct CabrilloLog {
    QList<QPair<QString, QString>> tags; // header tags in file order (QSO/QTC lines excluded)
    QList<CabrilloQso> qsos;
    QList<CabrilloQtc> qtcs;
    QStringList errors;
    QString tag(const QString& name) const; // first value of a tag
    QStringList all(const QString& name) const;
};

// QSO lines are read with the template of the contest: `sentFields` exchange fields after the
// sending call and `rcvdFields` after the receiving call.
CabrilloLog readCabrillo3(const QByteArray& file, int sentFields, int rcvdFields);

using AdifFields = QMap<QString, QString>; // field names in upper case

struct AdifFile {
    QString preamble; // header text before the first data specifier
    AdifFields header;
    QList<AdifFields> records;
    QStringList errors;
};

AdifFile readAdif(const QByteArray& file);

// Errors of one record's values against the ADIF types and enumerations it uses.
QStringList checkAdifRecord(const AdifFields& record);

} // namespace fmt
