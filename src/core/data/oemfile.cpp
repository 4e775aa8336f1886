#include "data/oemfile.h"

#include "data/safefile.h"
#include "text/codepage.h"

#include <QFile>
#include <QList>

namespace hfc {

bool ansiToOemFile(const QString& path, QString* error) {
    if (path.size() < 4) return false;
    // The copy named with "1" is the working file: the converted text goes there whole and then
    // takes the file's place, so a full disk or a failed write leaves the file as it was.
    const QString copy = path.left(path.size() - 4) + QLatin1Char('1') + path.right(4);

    QFile in(path);
    if (!in.open(QIODevice::ReadOnly)) {
        if (error) *error = QStringLiteral("Не удалось прочитать файл: %1").arg(path);
        return false;
    }
    const QByteArray text = in.readAll();
    if (in.error() != QFileDevice::NoError) {
        if (error) *error = QStringLiteral("Не удалось прочитать файл: %1").arg(path);
        return false;
    }
    in.close();

    QList<QByteArray> lines = text.split('\n');
    // Text ending in a line end (or empty text) has no line after the last LF.
    if (lines.last().isEmpty()) lines.removeLast();
    QByteArray out;
    out.reserve(text.size() + lines.size());
    for (QByteArray& line : lines) {
        if (line.endsWith('\r')) line.chop(1);
        out += win1251ToCp866(line) + "\r\n";
    }
    return writeFileWhole(path, out, error, copy);
}

} // namespace hfc
