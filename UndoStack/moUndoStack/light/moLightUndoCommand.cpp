#include <moUndoStack/light/moLightUndoCommand.h>

MO_UNDO_COMMAND_ID_TEMPLATE_IMPL(moLightsFunctionUndoCommand, T)

template<class T>
moLightsFunctionUndoCommand<T>::moLightsFunctionUndoCommand(const moUndoString& text, const osg::NodePtr& light,
                                                            T value, const Getter& getter, const Setter& setter,
                                                            QUndoCommand* parent)
    : moLightUndoCommand<T>(text, light, 0, value, parent), m_getter(getter), m_setter(setter)
{
}

template<class T>
bool moLightsFunctionUndoCommand<T>::canMergeWith(const QUndoCommand* other) const
{
    return moLightUndoCommand<T>::canMergeWith(other) && other->text() == this->text();
}

template<class T>
T moLightsFunctionUndoCommand<T>::get(osg::NodePtr node)
{
    return m_getter(node);
}

template<class T>
void moLightsFunctionUndoCommand<T>::set(osg::NodePtr node, T value)
{
    m_setter(node, value);
}

template class moFunctionUndoCommand<osg::UberLight::LightAttenuation>;
template class moLightUndoCommand<osg::Vec3f>;
template class moLightUndoCommand<float>;
template class moLightUndoCommand<bool>;
template class moLightUndoCommand<osg::UberLight::LightAttenuation>;
template class moLightsFunctionUndoCommand<bool>;
