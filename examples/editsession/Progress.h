#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>

/// Says how far the work is, in one line of a terminal that is written over, and breaks it off when it shall end.
class Progress
{
public:
    using Write = std::function<void(const QByteArray& text)>;
    using Stop = std::function<bool()>;

    /// \param write  gets what goes to the terminal; without it nothing is said.
    /// \param stop   asked at every step whether to break off; without it never.
    explicit Progress(Write write = {}, Stop stop = {});
    ~Progress() { end(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// What is being done from now on: the chapter.
    void begin(const QString& phase);

    /// One of its activities, and how far that is. The line is written when it says something new.
    /// \param all  0 if it is not known.
    /// \throws Interrupted  if the work is to break off.
    void step(const char* activity, std::size_t done = 0, std::size_t all = 0);

    /// Takes the line away. The end of the object does so, too.
    void end();

    const QString& phase() const { return m_phase; }

private:
    void show(const QString& line);

    Write m_write;
    Stop m_stop;
    QString m_phase;
    QString m_shown;
};
