#include <moUndoStack/core/moUndoCommandBase.h>

#include <moUndoUtils/moUndoString.h>

#include <utility>

int moUndoCommandBase::s_changedCount = 0;

moUndoCommandBase::moUndoCommandBase(const moUndoString& text, QUndoCommand* parent)
    : QUndoCommand(text.text(), parent), m_parent(parent), m_description(text.description())
{
}

moUndoCommandBase::~moUndoCommandBase()
{
    if (m_changed) --s_changedCount;
}

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
    auto replacement = changed ? std::make_shared<std::function<void(bool)>>(std::move(changed)) : nullptr;
    s_changedCount += (replacement ? 1 : 0) - (m_changed ? 1 : 0);
    m_changed = std::move(replacement);
}

void moUndoCommandBase::callChangedCB(bool done) const
{
    // Held meanwhile: the function may set another one while it runs. Not a copy of it, as it may keep a state.
    if (const auto changed = m_changed) (*changed)(done);
    for (int i = 0; i < childCount(); ++i) {
        if (const auto* command = dynamic_cast<const moUndoCommandBase*>(child(i))) command->callChangedCB(done);
    }
}
