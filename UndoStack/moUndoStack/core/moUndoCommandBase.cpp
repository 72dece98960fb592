#include <moUndoStack/core/moUndoCommandBase.h>

#include <moUndoStack/core/moCommandOptions_p.h>
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
    if (m_options && m_options->changed) --s_changedCount;
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
    if (!changed && !m_options) return;
    auto& held = options().changed;
    const bool had = bool(held);
    held.set(std::move(changed));
    s_changedCount += int(bool(held)) - int(had);
}

moUndoCommandBase::Options& moUndoCommandBase::options()
{
    if (!m_options) m_options = std::make_unique<Options>();
    return *m_options;
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
    if (m_options) moStep::afterwards([this, done] { m_options->changed(done); });
    for (int i = 0; i < childCount(); ++i) {
        if (const auto* command = dynamic_cast<const moUndoCommandBase*>(child(i))) command->callChangedCB(done);
    }
}
