#pragma once

/// Code written against the interface says either OSG::NodePtr or osg::NodePtr: the upper-case name is a macro.
/// No identifier of a translation unit that includes this may be spelled exactly OSG.
#define OSG osg

#define OSG_BEGIN_NAMESPACE namespace osg {
#define OSG_END_NAMESPACE }
#define OSG_USING_NAMESPACE                                                                                            \
    namespace osg {                                                                                                    \
    }                                                                                                                  \
    using namespace osg;

#define OSG_MAJOR_VERSION 1
#define OSG_MINOR_VERSION 8
#define OSG_RELEASE_VERSION 1
#define OSG_VERSION 0x010801
#define OSG_VERSION_STRING "1.8.1"

/// Classes and class templates keep default visibility in a library that hides its symbols: a field type has to be the
/// same type on both sides of a library boundary.
#if defined(__GNUC__)
    #define OSG_BASELIB_DLLMAPPING __attribute__((visibility("default")))
#else
    #define OSG_BASELIB_DLLMAPPING
#endif
#define OSG_SYSTEMLIB_DLLMAPPING OSG_BASELIB_DLLMAPPING
