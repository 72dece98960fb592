#include <moUndoStack/core/moUndoCommandBase.h>

#include <moUndoUtils/moUndoString.h>

#include <utility>

moUndoCommandBase::moUndoCommandBase(const moUndoString& text, QUndoCommand* parent)
    : QUndoCommand(text.text(), parent), m_parent(parent), m_description(text.description())
{
}

moUndoCommandBase::~moUndoCommandBase() = default;

QUndoCommand* moUndoCommandBase::parent() const
{
    return m_parent;
}

void moUndoCommandBase::setDescription(const QString& description)
{
    m_description = description;
}

QString moUndoCommandBase::getDescription() const
{
    return m_description;
}

void moUndoCommandBase::setChangedCB(std::function<void(bool)> changed)
{
    m_changed = std::move(changed);
}

void moUndoCommandBase::callChangedCB(bool done) const
{
    // A copy: the function may set another one while it runs.
    if (const auto changed = m_changed) changed(done);
    for (int i = 0; i < childCount(); ++i) {
        if (const auto* command = dynamic_cast<const moUndoCommandBase*>(child(i))) command->callChangedCB(done);
    }
}
