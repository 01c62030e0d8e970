#include "app/presentation/TonedLines.h"

#include <utility>

namespace ornivo::app {

void TonedLines::setLines(std::vector<TonedText> lines) {
    const bool isResized = lines.size() != lines_.size();
    resize(lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines_[i] == lines[i]) continue;
        lines_[i] = std::move(lines[i]);
        const QModelIndex changed = index(static_cast<int>(i));
        Q_EMIT dataChanged(changed, changed);
    }
    if (isResized) Q_EMIT countChanged();
}

void TonedLines::resize(std::size_t size) {
    const int before = count();
    const int after = static_cast<int>(size);
    if (after > before) {
        beginInsertRows({}, before, after - 1);
        lines_.resize(size);
        endInsertRows();
    } else if (after < before) {
        beginRemoveRows({}, after, before - 1);
        lines_.resize(size);
        endRemoveRows();
    }
}

int TonedLines::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant TonedLines::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const TonedText& line = lines_[static_cast<std::size_t>(index.row())];
    if (role == textRole) return line.text;
    if (role == toneRole) return static_cast<int>(line.tone);
    return {};
}

QHash<int, QByteArray> TonedLines::roleNames() const {
    return {{textRole, "text"}, {toneRole, "tone"}};
}

}  // namespace ornivo::app
