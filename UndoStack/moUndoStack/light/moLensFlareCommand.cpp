#include <moUndoStack/light/moLensFlareCommand.h>

#include <moUndoUtils/moUndoString.h>
#include <moUtils/moMessage.h>

moLensFlareCommand::moLensFlareCommand(const char* text, QUndoCommand* parent)
    : moUndoCommand(moUndoString(text, QStringLiteral("Light Commands")), parent)
{
}

moLensFlareCommand::~moLensFlareCommand() = default;

void moLensFlareCommand::makeMessage(moMessage& message) const
{
    moUndoCommand::makeMessage(message);
    message.set("lightCommand", true, true);
}
