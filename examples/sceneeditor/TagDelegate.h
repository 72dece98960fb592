#pragma once

#include <QtCore/QRect>
#include <QtWidgets/QStyledItemDelegate>

#include <vector>

/// Paints the tags of a node as chips. A user's tag has a cross, by which it is removed.
class TagDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// Where the cross of a user's tag is in the item; empty if it has no such tag.
    QRect crossOf(const QStyleOptionViewItem& option, const QModelIndex& index, const QString& tag) const;

Q_SIGNALS:
    /// The cross of a tag was clicked.
    void removeRequested(const QModelIndex& index, const QString& tag);

protected:
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

private:
    struct Chip
    {
        QString tag;
        QRect rect;
        QRect cross; ///< empty for the tags of the application
    };
    static std::vector<Chip> chips(const QStyleOptionViewItem& option, const QModelIndex& index);
};
