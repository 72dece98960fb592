#include <sceneeditor/HistoryDock.h>

#include <moUndoStack/core/moUndoCommandBase.h>
#include <moUndoStack/core/moUndoStack.h>
#include <moUndoStack/core/moUndoStackState.h>

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QTreeWidget>

namespace {

void describe(QTreeWidgetItem& row, const QUndoCommand& command)
{
    row.setText(0, command.text());
    if (const auto* const described = dynamic_cast<const moUndoCommandBase*>(&command))
        row.setToolTip(0, described->getDescription());
}

/// Children that are known do not change; only a merge exchanges texts.
void showChildren(QTreeWidgetItem& row, const QUndoCommand& command)
{
    while (row.childCount() > command.childCount())
        delete row.takeChild(row.childCount() - 1);
    for (int i = 0; i < command.childCount(); ++i) {
        if (i == row.childCount()) row.addChild(new QTreeWidgetItem);
        describe(*row.child(i), *command.child(i));
        row.child(i)->setFlags(Qt::ItemIsEnabled);
        showChildren(*row.child(i), *command.child(i));
    }
}

} // namespace

HistoryDock::HistoryDock(const QString& title, const char* name, moUndoStack& stack, const moUndoStackState& state,
                         QWidget* parent)
    : QDockWidget(title, parent), m_stack(stack), m_list(new QTreeWidget)
{
    setObjectName(name);
    m_list->setObjectName(QString(name) + "List");
    m_list->setHeaderHidden(true);
    m_list->setUniformRowHeights(true);
    setWidget(m_list);
    connect(m_list, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* chosen) {
        if (chosen && !chosen->parent()) m_stack.setIndex(m_list->indexOfTopLevelItem(chosen));
    });
    // Also a merge is a step, although the index stays.
    connect(&stack, &moUndoStack::redoPerformed, this, &HistoryDock::show);
    connect(&state, &moUndoStackState::indexChanged, this, &HistoryDock::show);
    connect(&state, &moUndoStackState::cleanChanged, this, &HistoryDock::show);
    connect(&stack, &moUndoStack::cleared, this, &HistoryDock::show);
    show();
}

void HistoryDock::show()
{
    const QSignalBlocker showing(m_list);
    while (m_list->topLevelItemCount() > m_stack.size() + 1)
        delete m_list->takeTopLevelItem(m_list->topLevelItemCount() - 1);
    while (m_list->topLevelItemCount() < m_stack.size() + 1)
        new QTreeWidgetItem(m_list);
    for (int index = 0; index <= m_stack.size(); ++index)
        showStep(*m_list->topLevelItem(index), index);
    QTreeWidgetItem* const present = m_list->topLevelItem(m_stack.index());
    m_list->setCurrentItem(present);
    m_list->scrollToItem(present);
}

/// The state in which that many steps are done.
void HistoryDock::showStep(QTreeWidgetItem& row, int index)
{
    if (index == 0)
        row.setText(0, tr("(as loaded)"));
    else if (const QUndoCommand* const command = m_stack.command(index - 1)) {
        describe(row, *command);
        showChildren(row, *command);
    }
    QFont font = m_list->font();
    font.setBold(index == m_stack.cleanIndex());
    row.setFont(0, font);
    const bool done = index <= m_stack.index();
    row.setForeground(0, m_list->palette().brush(done ? QPalette::Active : QPalette::Disabled, QPalette::Text));
}
