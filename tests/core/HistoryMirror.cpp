#include <core/HistoryMirror.h>

#include <moUndoStack/core/moUndoHistoryModel.h>

HistoryMirror::HistoryMirror(const QAbstractItemModel& model) : m_model(model), m_items(copyChildren(model, {}))
{
    follow();
}

void HistoryMirror::follow()
{
    using Model = QAbstractItemModel;
    QObject::connect(&m_model, &Model::rowsInserted, &m_context,
                     [this](const QModelIndex& parent, int first, int last) {
                         std::vector<Item>& items = itemsBelow(parent);
                         for (int row = first; row <= last; ++row)
                             items.insert(items.begin() + row, copy(m_model.index(row, 0, parent)));
                     });
    QObject::connect(&m_model, &Model::rowsRemoved, &m_context, [this](const QModelIndex& parent, int first, int last) {
        std::vector<Item>& items = itemsBelow(parent);
        items.erase(items.begin() + first, items.begin() + last + 1);
    });
    QObject::connect(&m_model, &Model::dataChanged, &m_context,
                     [this](const QModelIndex& first, const QModelIndex& last) {
                         std::vector<Item>& items = itemsBelow(first.parent());
                         for (int row = first.row(); row <= last.row(); ++row)
                             items.at(static_cast<std::size_t>(row)).text = textOf(first.sibling(row, 0));
                     });
    QObject::connect(&m_model, &Model::modelReset, &m_context, [this] { m_items = copyChildren(m_model, {}); });
}

std::string HistoryMirror::textOf(const QModelIndex& index)
{
    std::string text = index.data().toString().toStdString();
    if (index.data(moUndoHistoryModel::CleanRole).toBool()) text += " clean";
    if (!index.data(moUndoHistoryModel::DoneRole).toBool()) text += " undone";
    return text;
}

HistoryMirror::Item HistoryMirror::copy(const QModelIndex& index)
{
    return {index, textOf(index), copyChildren(*index.model(), index)};
}

std::vector<HistoryMirror::Item> HistoryMirror::copyChildren(const QAbstractItemModel& model, const QModelIndex& parent)
{
    std::vector<Item> items;
    for (int row = 0; row < model.rowCount(parent); ++row)
        items.push_back(copy(model.index(row, 0, parent)));
    return items;
}

std::vector<HistoryMirror::Item>& HistoryMirror::itemsBelow(const QModelIndex& parent)
{
    if (!parent.isValid()) return m_items;
    return itemsBelow(parent.parent()).at(static_cast<std::size_t>(parent.row())).children;
}

void HistoryMirror::print(const std::vector<Item>& items, const std::string& indent, std::vector<std::string>& lines)
{
    for (const Item& item : items) {
        lines.push_back(indent + item.text);
        print(item.children, indent + "  ", lines);
    }
}

std::vector<std::string> HistoryMirror::rows() const
{
    std::vector<std::string> lines;
    print(m_items, "", lines);
    return lines;
}

std::vector<std::string> HistoryMirror::read(const QAbstractItemModel& model)
{
    std::vector<std::string> lines;
    print(copyChildren(model, {}), "", lines);
    return lines;
}

void HistoryMirror::check(const std::vector<Item>& items, const QModelIndex& parent, std::vector<std::string>& faults)
{
    int row = 0;
    for (const Item& item : items) {
        if (item.index.row() != row || item.index.parent() != parent)
            faults.push_back("the index of \"" + item.text + "\" in row " + std::to_string(row) + " is in row " +
                             std::to_string(item.index.row()));
        check(item.children, item.index, faults);
        ++row;
    }
}

std::vector<std::string> HistoryMirror::faults() const
{
    std::vector<std::string> found;
    check(m_items, {}, found);
    return found;
}
