#include <moUndoStack/moUndoCommands.h>

#include <moUtils/moMessage.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGTransform3D.h>

#include <QtCore/QStringList>

#include <iostream>

namespace {

//! [journal]
/// Writes down each step of a stack. The listener is removed before the journal is destroyed.
class Journal
{
public:
    explicit Journal(moUndoStack& stack) : m_stack(stack)
    {
        stack.setMessageListener([this](const char* name, moMessage& message, int) {
            const boost::any* const text = message.find("text");
            if (text) m_lines << QString(name) + ": " + boost::any_cast<std::string>(*text).c_str();
        });
    }
    ~Journal() { m_stack.setMessageListener({}); }
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    const QStringList& lines() const { return m_lines; }

private:
    moUndoStack& m_stack;
    QStringList m_lines;
};
//! [journal]

} // namespace

int main(int argc, char** argv)
{
    osg::osgInit(argc, argv);
    const osg::NodeRefPtr box(osg::makeNodeFor(osg::Transform3D::create()));
    const moRecordingScope recording;
    moUndoStack& stack = moUndoStack::get();
    //! [use]
    const Journal journal(stack);
    stack.addOrExecute(new moShearUndoCommand(box, osg::Vec3f(1, 0, 0), nullptr));
    stack.undo();
    std::cout << journal.lines().join('\n').toStdString() << '\n';
    //! [use]
    moUndoStack::clearAll();
    return 0;
}
