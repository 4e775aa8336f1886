#pragma once
// Runs hfcontest-script lines against a headless main window: a fixed clock, scripted dialogs and
// a recording key port. Output goes to `out`; the first error ends the run with exit code 2.
#include <QString>
#include <QTextStream>
#include <memory>

namespace hfc {

class ScriptRunner {
  public:
    ScriptRunner(QTextStream& out, QTextStream& err);
    ~ScriptRunner();
    // Opens the data folder and builds the window; false (message on err) when it cannot.
    bool start(const QString& dataDir);
    // Runs one line; false when the line was an error (already reported on err).
    bool runLine(const QString& line);
    // Runs a whole script text; returns the process exit code (0 or 2).
    int runScript(const QString& text);

    static QString escape(const QString& value);
    static QString unescapeTyped(const QString& text);

  private:
    struct Impl;
    std::unique_ptr<Impl> d;
};

} // namespace hfc
