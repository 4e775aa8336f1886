#pragma once
// `hfcontest export`: writes one report file without the window, through the report window's
// own model, so the file is byte for byte what its button writes.
//
//   hfcontest export [--data-dir DIR] --to FOLDER [--contest CODE]
//                    [--category-power HIGH ...] [--qtc sent|received]
//                    cabrillo|adif|log|sum|cabrillo3|adif3
//
// The standard exports (cabrillo3, adif3) print the report window's check list to standard
// error as warnings and are written all the same. The --category-… options (operator,
// assisted, band, mode, power, station, transmitter) and --qtc choose what the report window's
// boxes would; left out, the values the log suggests stand.
#include <QStringList>
#include <QTextStream>

namespace hfc {

// args: the words after "export". Returns the exit code: 0 written, 1 not written, 2 bad usage.
// Messages are Russian; the written file's path goes to out, problems to err.
int runExportCommand(const QStringList& args, QTextStream& out, QTextStream& err);

} // namespace hfc
