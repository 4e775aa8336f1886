#pragma once
// Accumulates a report file line by line; widths are counted in characters, the code page is
// applied once at the end.
#include "text/codepage.h"

#include <QString>

namespace hfc {

class ReportText {
  public:
    // Appends to the current line without ending it.
    ReportText& operator<<(const QString& piece) {
        text_ += piece;
        return *this;
    }
    void endLine() { text_ += QLatin1String("\r\n"); }
    void line(const QString& whole) {
        text_ += whole;
        endLine();
    }
    QByteArray bytes() const { return toWin1251(text_); }

  private:
    QString text_;
};

} // namespace hfc
