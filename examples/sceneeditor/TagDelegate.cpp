#include <sceneeditor/TagDelegate.h>

#include <sceneeditor/SceneTreeModel.h>

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

namespace {

constexpr int gap = 3;
constexpr int padding = 6;

} // namespace

std::vector<TagDelegate::Chip> TagDelegate::chips(const QStyleOptionViewItem& option, const QModelIndex& index)
{
    std::vector<Chip> result;
    int left = option.rect.left() + gap;
    const int top = option.rect.top() + 1;
    const int height = option.rect.height() - 2;
    const auto add = [&](const QString& tag, bool removable) {
        const int crossWidth = removable ? option.fontMetrics.horizontalAdvance(QStringLiteral(" ×")) : 0;
        const int width = option.fontMetrics.horizontalAdvance(tag) + crossWidth + 2 * padding;
        const QRect rect(left, top, width, height);
        const QRect cross = removable ? rect.adjusted(width - crossWidth - padding, 0, 0, 0) : QRect();
        result.push_back({tag, rect, cross});
        left += width + gap;
    };
    for (const QString& tag : index.data(SceneTreeModel::UserTagsRole).toStringList())
        add(tag, true);
    for (const QString& tag : index.data(SceneTreeModel::SystemTagsRole).toStringList())
        add(tag, false);
    return result;
}

void TagDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    painter->save();
    painter->setClipRect(option.rect);
    painter->setRenderHint(QPainter::Antialiasing);
    for (const Chip& chip : chips(option, index)) {
        const bool removable = !chip.cross.isEmpty();
        painter->setPen(option.palette.color(QPalette::Mid));
        painter->setBrush(option.palette.color(removable ? QPalette::Button : QPalette::Window));
        painter->drawRoundedRect(QRectF(chip.rect).adjusted(0.5, 0.5, -0.5, -0.5), chip.rect.height() / 2.,
                                 chip.rect.height() / 2.);
        painter->setPen(option.palette.color(removable ? QPalette::ButtonText : QPalette::WindowText));
        painter->drawText(chip.rect.adjusted(padding, 0, -padding, 0), Qt::AlignLeft | Qt::AlignVCenter, chip.tag);
        if (removable)
            painter->drawText(chip.cross.adjusted(0, 0, -padding, 0), Qt::AlignRight | Qt::AlignVCenter,
                              QStringLiteral("×"));
    }
    painter->restore();
}

QSize TagDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const auto all = chips(option, index);
    const int width = all.empty() ? 0 : all.back().rect.right() - option.rect.left() + gap;
    return {width, option.fontMetrics.height() + 6};
}

QRect TagDelegate::crossOf(const QStyleOptionViewItem& option, const QModelIndex& index, const QString& tag) const
{
    for (const Chip& chip : chips(option, index))
        if (chip.tag == tag && !chip.cross.isEmpty()) return chip.cross;
    return {};
}

bool TagDelegate::editorEvent(QEvent* event, QAbstractItemModel*, const QStyleOptionViewItem& option,
                              const QModelIndex& index)
{
    if (event->type() != QEvent::MouseButtonRelease) return false;
    const auto* const mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() != Qt::LeftButton) return false;
    for (const Chip& chip : chips(option, index)) {
        if (!chip.cross.contains(mouse->pos())) continue;
        Q_EMIT removeRequested(index, chip.tag);
        return true;
    }
    return false;
}
