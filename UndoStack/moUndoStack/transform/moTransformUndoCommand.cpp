#include <moUndoStack/transform/moTransformUndoCommand.h>

#include <moUndoStack/transform/moTransformText_p.h>

#include <QtCore/QStringBuilder>

#include <utility>

static moUndoString actionText(const QString& word, const osg::NodePtr& node)
{
    const auto compose = [](const QString& action, const QString& name) -> QString {
        return action % QLatin1String(" '") % name % QLatin1Char('\'');
    };
    return transformText(sharedText(word, node, compose), word);
}

template<class T>
moTransformUndoCommand<T>::moTransformUndoCommand(const char* text, osg::NodePtr node, T value, bool flag,
                                                  QUndoCommand* parent, int variantIndex)
    : moTransformUndoCommand(text, node, std::move(value), flag, moMergeOption(), parent, variantIndex)
{
}

template<class T>
moTransformUndoCommand<T>::moTransformUndoCommand(const char* text, osg::NodePtr node, T value, bool flag,
                                                  moMergeOption merge, QUndoCommand* parent, int variantIndex)
    : moTransformUndoCommand(QString::fromUtf8(text), node, std::move(value), flag, merge, parent, variantIndex)
{
}

template<class T>
moTransformUndoCommand<T>::moTransformUndoCommand(const QString& text, osg::NodePtr node, T value, bool flag,
                                                  moMergeOption merge, QUndoCommand* parent, int variantIndex)
    : moFunctionUndoCommand<T>(actionText(text, node), node, std::move(value), parent),
      m_flag(flag),
      m_variantIndex(variantIndex)
{
    merge.applyTo(*this);
}

template<class T>
void moTransformUndoCommand<T>::makeMessage(moMessage& message) const
{
    moFunctionUndoCommand<T>::makeMessage(message);
    message.set("transformCommand", true, true);
}

template<class T>
bool moTransformUndoCommand<T>::canMergeWith(const QUndoCommand* other) const
{
    if (!moFunctionUndoCommand<T>::canMergeWith(other)) return false;
    const auto* newer = this->castLike(*this, other);
    return newer && newer->m_flag == m_flag && newer->m_variantIndex == m_variantIndex;
}

template class moTransformUndoCommand<osg::Vec3f>;
template class moTransformUndoCommand<std::string>;
