#include <scene/Progress.h>

#include <scene/Interrupt.h>

#include <algorithm>

namespace {

// Back to the start of the line, and erase it.
constexpr const char* eraseLine = "\r\033[K";

} // namespace

Progress::Progress(Write write, Stop stop) : m_write(std::move(write)), m_stop(std::move(stop)) {}

void Progress::end()
{
    if (!m_shown.isEmpty()) m_write(eraseLine);
    m_shown.clear();
}

void Progress::begin(const QString& phase)
{
    m_phase = phase;
    show(phase);
}

void Progress::step(const char* activity, std::size_t done, std::size_t all)
{
    if (m_stop && m_stop()) throw Interrupted();
    if (!m_write) return;
    QString line = m_phase + QStringLiteral(": ") + QString::fromLatin1(activity);
    if (all > 0) line += QStringLiteral(", %1 %").arg(std::min(done, all) * 100 / all);
    show(line);
}

void Progress::show(const QString& line)
{
    if (!m_write || line == m_shown) return;
    m_shown = line;
    m_write(eraseLine + line.toUtf8());
}
