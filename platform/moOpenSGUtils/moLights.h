#pragma once

#include <OpenSG/OSGNode.h>
#include <moOpenSGUberLight/OSGLensFlareEffect.h>
#include <moOpenSGUberLight/OSGLensFlareGhostLine.h>
#include <moOpenSGUberLight/OSGUberLight.h>

#include <string>
#include <vector>

/// How moLights::cloneLensFlareEffect treats the elements.
enum LensFlareEffectCloneMode : int
{
    LensFlareEffectCloneDeep = 0,          ///< the clone gets clones of its own
    LensFlareEffectCloneSharedElements = 1 ///< the clone lists the very same elements, as a backup has to
};

/// Reads and changes the lights of a scene through their nodes.
///
/// A light is a node whose core is an osg::UberLight. For anything else - null, a node without core or with another
/// core - every getter returns the zero of its type (false, 0, black, "", null, no attenuation) and every setter does
/// nothing. Setters bracket their edit with the fields that they write (origin External); when a listener throws, all
/// is written, and the exception goes on to the caller. NaN changes nothing, save in
/// a colour. A light value and an angle are read within their limits, too, whatever the field holds (NaN as 0): what
/// was read can be set again. Main thread only.
class moLights
{
public:
    moLights() = delete;

    static bool isLight(const osg::NodePtr& node);

    static bool getOn(const osg::NodePtr& light);
    static void setOn(const osg::NodePtr& light, bool on);

    /// Colours as red, green, blue; kept as given, also above 1 and below 0.
    static osg::Vec3f getDiffuse(const osg::NodePtr& light);
    static void setDiffuse(const osg::NodePtr& light, osg::Vec3f color);
    static osg::Vec3f getGlossy(const osg::NodePtr& light);
    static void setGlossy(const osg::NodePtr& light, osg::Vec3f color);

    /// The intensity in the light's own unit, kept at 0 or above.
    static float getLightValue(const osg::NodePtr& light);
    static void setLightValue(const osg::NodePtr& light, float value);

    /// Degrees, kept within 0 and 180. Every type of light keeps both angles; only spot lights shine by them.
    static float getPenumbraAngle(const osg::NodePtr& light);
    static void setPenumbraAngle(const osg::NodePtr& light, float degrees);
    static float getConeAngle(const osg::NodePtr& light);
    static void setConeAngle(const osg::NodePtr& light, float degrees);

    /// Changing the mode rescales the light value so that the light stays as bright at its attenuation distance. A mode
    /// outside the enumeration changes nothing.
    static osg::UberLight::LightAttenuation getAttenuation(const osg::NodePtr& light);
    static void setAttenuation(const osg::NodePtr& light, osg::UberLight::LightAttenuation mode);

    /// Whether the editor draws the light's symbol; the light shines either way.
    static bool getLightVisualizationVisible(const osg::NodePtr& light);
    static void setLightVisualizationVisible(const osg::NodePtr& light, bool visible);

    /// Type names: "Directional", "Point", "Spot", "Area", "Sphere", "Profile".
    static std::string getLightTypeName(const osg::NodePtr& light);

    /// Changes the type, converts the light value to the new type's default unit, and sets scale 1 unless the new type
    /// has an extent (area and sphere). The name of the current type, null, the empty or an unknown name change
    /// nothing.
    static void changeLightType(const osg::NodePtr& light, const char* typeName);

    /// Converts the light value to the unit; the light shines as before.
    static osg::UberLight::LightUnit getLightUnit(const osg::NodePtr& light);
    static void setLightUnit(const osg::NodePtr& light, osg::UberLight::LightUnit unit);
    /// The same with the default unit of the light's type.
    static void setDefaultLightUnit(const osg::NodePtr& light);

    /// Makes the light shine with the shape of its profile: type "Profile".
    static void setLightProfileShape(const osg::NodePtr& light);
    /// The luminous intensity in candela that the light's profile states; 0 without a profile or when it states none.
    static float getLightProfileValue(const osg::NodePtr& light);
    /// \param name   the profile's file; null counts as empty: no profile.
    /// \param value  what getLightProfileValue() returns from now on, kept as given.
    static void setLightProfile(const osg::NodePtr& light, const char* name, float value);

    static osg::LensFlareEffectPtr getLensFlareEffect(const osg::NodePtr& light);
    /// The light holds a reference on its effect. Null takes it away.
    static void setLensFlareEffect(const osg::NodePtr& light, const osg::LensFlareEffectPtr& effect);

    /// Adds elements to, or removes them from, the light's lens flare effect. Ids that are no element's are skipped. A
    /// light without an effect stays without one, and a call that finds nothing to do edits nothing.
    static void addLensFlareElements(const osg::NodePtr& light, const std::vector<unsigned int>& elementIds);
    static void removeLensFlareElements(const osg::NodePtr& light, const std::vector<unsigned int>& elementIds);

    /// The same for the ghosts of a ghost line. A null line is no error: nothing happens.
    static void addLensFlareGhosts(const osg::LensFlareGhostLinePtr& line, const std::vector<unsigned int>& ghostIds);
    static void removeLensFlareGhosts(const osg::LensFlareGhostLinePtr& line,
                                      const std::vector<unsigned int>& ghostIds);

    /// A new effect, without a reference yet, with the settings of the given one; null for null. A mode that is neither
    /// enumerator counts as LensFlareEffectCloneSharedElements.
    static osg::LensFlareEffectPtr cloneLensFlareEffect(const osg::LensFlareEffectPtr& effect,
                                                        LensFlareEffectCloneMode mode);
};
