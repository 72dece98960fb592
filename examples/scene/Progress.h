#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>

/// Shows how far the work is, in one line of a terminal that is overwritten, and breaks it off when asked to.
class Progress
{
public:
    using Write = std::function<void(const QByteArray& text)>;
    using Stop = std::function<bool()>;

    /// \param write  called with what goes to the terminal; if empty, nothing is shown.
    /// \param stop   called at every step, returns whether to break off; if empty, the work is never broken off.
    explicit Progress(Write write = {}, Stop stop = {});
    ~Progress() { end(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Begins a phase of the work, such as a chapter.
    void begin(const QString& phase);

    /// An activity of the phase, and how far it is. Writes the line if it changed.
    /// \param all  0 if it is not known.
    /// \throws Interrupted  if the work is to be broken off.
    void step(const char* activity, std::size_t done = 0, std::size_t all = 0);

    /// Erases the line. The destructor does so, too.
    void end();

    const QString& phase() const { return m_phase; }

private:
    void show(const QString& line);

    Write m_write;
    Stop m_stop;
    QString m_phase;
    QString m_shown;
};
