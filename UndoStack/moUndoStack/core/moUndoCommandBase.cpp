#include <moUndoStack/core/moUndoCommandBase.h>

#include <moUndoStack/core/moCommandSort_p.h>
#include <moUndoStack/core/moStep.h>

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
    moCommandSort::forget(this);
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
    const bool had = bool(m_changed);
    m_changed.set(std::move(changed));
    s_changedCount += int(bool(m_changed)) - int(had);
}

void moUndoCommandBase::removeChangedCBs()
{
    setChangedCB({});
    for (int i = 0; i < childCount(); ++i) {
        // Qt returns children as const only; this command owns them.
        if (auto* command = dynamic_cast<moUndoCommandBase*>(const_cast<QUndoCommand*>(child(i))))
            command->removeChangedCBs();
    }
}

void moUndoCommandBase::callChangedCB(bool done) const
{
    moStep::afterwards([this, done] { m_changed(done); });
    for (int i = 0; i < childCount(); ++i) {
        if (const auto* command = dynamic_cast<const moUndoCommandBase*>(child(i))) command->callChangedCB(done);
    }
}
