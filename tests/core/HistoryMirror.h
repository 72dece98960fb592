#pragma once

#include <QtCore/QAbstractItemModel>
#include <QtCore/QPersistentModelIndex>

#include <string>
#include <vector>

/// A copy of a history that is made from the signals of the model alone, as a view makes it: what a signal does not
/// tell is wrong in it.
class HistoryMirror
{
public:
    explicit HistoryMirror(const QAbstractItemModel& model);

    /// One line for each row, children indented: its text, "clean", "undone".
    std::vector<std::string> rows() const;

    /// What was wrong with the persistent indexes, which a view keeps for each row. Looks at all of them.
    std::vector<std::string> faults() const;

    /// What rows() should be: read from the model at once.
    static std::vector<std::string> read(const QAbstractItemModel& model);

private:
    struct Item
    {
        QPersistentModelIndex index;
        std::string text;
        std::vector<Item> children;
    };

    static std::string textOf(const QModelIndex& index);
    static Item copy(const QModelIndex& index);
    static std::vector<Item> copyChildren(const QAbstractItemModel& model, const QModelIndex& parent);
    static void print(const std::vector<Item>& items, const std::string& indent, std::vector<std::string>& lines);
    static void check(const std::vector<Item>& items, const QModelIndex& parent, std::vector<std::string>& faults);
    std::vector<Item>& itemsBelow(const QModelIndex& parent);
    void follow();

    const QAbstractItemModel& m_model;
    QObject m_context;
    std::vector<Item> m_items;
};
