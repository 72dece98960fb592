#pragma once

#include <moUndoStack/core/moHeldFunction.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <QtCore/QString>
#include <QtWidgets/QUndoCommand>

#include <functional>

class moMessage;
class moUndoString;

/// Root of all commands: Qt's command plus a second, longer text, a remembered parent and a changed callback.
///
/// Composites (moMultiCommand) derive from it directly, commands that make one edit from moUndoCommand.
class MO_UNDO_STACK_EXPORT moUndoCommandBase : public QUndoCommand
{
public:
    /// \param text    text() becomes Qt's command text, description() the description.
    /// \param parent  becomes the owner, as with QUndoCommand; null stays null.
    moUndoCommandBase(const moUndoString& text, QUndoCommand* parent);
    ~moUndoCommandBase() override;
    Q_DISABLE_COPY(moUndoCommandBase)

    /// The parent given at construction, not owned.
    virtual QUndoCommand* parent() const;

    virtual void setDescription(const QString& description);
    virtual QString getDescription() const;

    /// Adds the keys that describe this command to listeners. Overrides call their base class first.
    virtual void makeMessage(moMessage& message) const = 0;

    /// Whether a newer command may be merged into this one. Asked of the older command, by mergeWith().
    virtual bool canMergeWith(const QUndoCommand* other) const = 0;

    /// The function is called with true after this command was done (also when another was merged into it) and with
    /// false after it was undone, last of all listeners; that of a composite before those of its children. Replaces the
    /// one before; an empty function removes it.
    void setChangedCB(std::function<void(bool)> changed);

private:
    friend class moUndoStack;

    void callChangedCB(bool done) const;

    /// How many commands have a changed callback: while none has, nobody need look for one.
    static int s_changedCount;

    QUndoCommand* m_parent;
    moUndoDetail::HeldFunction<void(bool)> m_changed;
    QString m_description;
};
