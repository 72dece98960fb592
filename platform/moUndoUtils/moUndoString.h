#pragma once

#include <QtCore/QString>

/// The wording of a command: what the user reads in the history, a second text, and the group that the command belongs
/// to.
///
/// The strings are implicitly shared: copying a moUndoString copies no characters.
class moUndoString
{
public:
    /// Empty text, description and group.
    moUndoString() = default;

    /// \param text         shown in the history.
    /// \param description  the second text, e.g. the action without the object's name.
    /// \param group        names the family, e.g. "Transform Commands"; carried for the application, no command reads
    /// it.
    moUndoString(const QString& text, const QString& description, const QString& group);

    /// Text and description are both the literal, read as UTF-8. A null literal counts as empty.
    moUndoString(const char* literal, const QString& group);

    const QString& text() const { return m_text; }
    const QString& description() const { return m_description; }
    const QString& group() const { return m_group; }

private:
    QString m_text;
    QString m_description;
    QString m_group;
};
