#include "app/presentation/ScreenTexts.h"

#include <algorithm>
#include <cmath>

#include "platform/Paths.h"

namespace ornivo::app {
namespace {

bool isControl(QChar letter) {
    const QChar::Category category = letter.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph;
}

}  // namespace

QString shown(const std::string& text) {
    return QString::fromStdString(text);
}

QString onOneLine(QString text) {
    std::replace_if(text.begin(), text.end(), isControl, QLatin1Char(' '));
    return text;
}

QString shownName(const std::filesystem::path& path) {
    return onOneLine(shown(lastPathComponent(path)));
}

int percentage(int part, int whole) {
    if (whole < 1) return 0;
    return static_cast<int>(std::lround(100.0 * part / whole));
}

QString timeLabel(double seconds) {
    if (seconds < 60) return QStringLiteral("%1s").arg(seconds, 0, 'f', 1);
    const auto whole = static_cast<qint64>(seconds);
    return QStringLiteral("%1m %2s").arg(whole / 60).arg(whole % 60);
}

}  // namespace ornivo::app
