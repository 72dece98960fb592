#pragma once

#include <moUndoStack/core/moUndoStackExport.h>

#include <QUndoCommand>
#include <QtCore/QString>

#include <functional>
#include <memory>

class moMessage;
class moUndoString;

/// Root of all commands: Qt's command plus a second, longer text, a remembered parent and a changed callback.
///
/// Composites (moMultiCommand) derive from it directly, commands that make one edit from moUndoCommand.
class MO_UNDO_STACK_EXPORT moUndoCommandBase : public QUndoCommand
{
public:
    /// \param text    its text() becomes Qt's command text, its description() the description.
    /// \param parent  owns this command and runs it as its child, as with QUndoCommand; null means none.
    moUndoCommandBase(const moUndoString& text, QUndoCommand* parent);
    ~moUndoCommandBase() override;
    Q_DISABLE_COPY(moUndoCommandBase)

    /// The parent given at construction; null if there is none.
    virtual QUndoCommand* parent() const;

    /// Sets the longer text, for tool tips and messages.
    virtual void setDescription(const QString& description);

    /// The longer text.
    virtual QString getDescription() const;

    /// Adds the keys that describe this command to a message. Overrides call their base class first.
    virtual void makeMessage(moMessage& message) const = 0;

    /// Whether `other`, a newer command, may be merged into this one. Called by mergeWith() of this, the older command,
    /// and by a composite for each child.
    virtual bool canMergeWith(const QUndoCommand* other) const = 0;

    /// Sets the changed callback: called with true after this command was done (also when another was merged into it)
    /// and with false after it was undone. It is the last listener of a step; that of a composite comes before those of
    /// its children. Replaces the one before; an empty function removes it.
    void setChangedCB(std::function<void(bool)> changed);

private:
    friend class moMultiCommand;
    friend class moUndoCommand;
    friend class moUndoStack;
    struct Options;

    void callChangedCB(bool done) const;
    void removeChangedCBs();

    /// With none, a step skips the search for callbacks: the dynamic_cast alone takes 240 instructions, a fifth of an undo.
    static bool anyHasChangedCB() { return s_changedCount > 0; }

    /// Makes them if there are none yet.
    Options& options();

    /// How many commands have one.
    Q_DECL_HIDDEN static int s_changedCount;

    QUndoCommand* m_parent;
    std::unique_ptr<Options> m_options; ///< null: all are the default
    QString m_description;
};
