#include <sceneeditor/MessagesDock.h>

#include <sceneeditor/EditorSession.h>

#include <scene/MessageEntry.h>

#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTreeWidget>

MessagesDock::MessagesDock(EditorSession& session, QWidget* parent)
    : QDockWidget(tr("Messages"), parent), m_list(new QTreeWidget)
{
    setObjectName("messagesDock");
    m_list->setObjectName("messages");
    m_list->setHeaderLabels({tr("Message"), tr("Value"), tr("Type")});
    m_list->setUniformRowHeights(true);
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setWidget(m_list);
    connect(&session, &EditorSession::messageArrived, this, &MessagesDock::add);
    connect(&session, &EditorSession::sceneLoaded, m_list, &QTreeWidget::clear);
}

void MessagesDock::add(const QString& name, const moMessage& message)
{
    auto* const row = new QTreeWidgetItem({name});
    QStringList keys;
    for (const moMessage::Entry& entry : message.entries()) {
        const MessageEntry read = readEntry(entry);
        row->addChild(new QTreeWidgetItem({read.key, written(read.value), read.type}));
        keys.append(read.key);
    }
    row->setText(1, keys.join(", "));
    m_list->addTopLevelItem(row);
    if (m_list->topLevelItemCount() > keptMessages) delete m_list->takeTopLevelItem(0);
    m_list->scrollToItem(row);
}
