#pragma once
// `hfcontest export`: writes one report file without the window, through the report window's
// own model, so the file is byte for byte what its button writes.
//
//   hfcontest export [--data-dir DIR] --to FOLDER [--contest CODE] cabrillo|adif|log|sum
#include <QStringList>
#include <QTextStream>

namespace hfc {

// args: the words after "export". Returns the exit code: 0 written, 1 not written, 2 bad usage.
// Messages are Russian; the written file's path goes to out, problems to err.
int runExportCommand(const QStringList& args, QTextStream& out, QTextStream& err);

} // namespace hfc
