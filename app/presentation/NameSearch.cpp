#include "app/presentation/NameSearch.h"

#include <QLocale>
#include <QStringMatcher>
#include <algorithm>
#include <numeric>

#include "platform/Text.h"

namespace ornivo::app {
namespace {

constexpr QChar lineEnd = u'\n';

QString folded(const QString& text) {
    return QString::fromStdString(caselessForm(QLocale().toLower(text).toStdString()));
}

QString joined(const std::vector<std::string>& names) {
    QString lines;
    for (const std::string& name : names) {
        lines += QString::fromStdString(name).replace(lineEnd, u' ') + lineEnd;
    }
    return lines;
}

}  // namespace

NameSearch::NameSearch(const std::vector<std::string>& names) : folded_(folded(joined(names))) {
    starts_.reserve(names.size() + 1);
    for (qsizetype end = folded_.indexOf(lineEnd); end >= 0;
         end = folded_.indexOf(lineEnd, starts_.back())) {
        starts_.push_back(end + 1);
    }
}

std::vector<int> NameSearch::search(const QString& part) const {
    const QString wanted = folded(part.trimmed());
    std::vector<int> found;
    if (wanted.isEmpty()) {
        found.resize(starts_.size() - 1);
        std::iota(found.begin(), found.end(), 0);
        return found;
    }
    const QStringMatcher matcher(wanted);
    auto next = starts_.begin();
    for (qsizetype at = matcher.indexIn(folded_); at >= 0; at = matcher.indexIn(folded_, *next)) {
        next = std::upper_bound(next, starts_.end(), at);
        found.push_back(static_cast<int>(next - starts_.begin()) - 1);
    }
    return found;
}

}  // namespace ornivo::app
