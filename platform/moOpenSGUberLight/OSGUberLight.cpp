#include <moOpenSGUberLight/OSGUberLight.h>

#include <OpenSG/OSGCountedField.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>

OSG_BEGIN_NAMESPACE

OSG_CONTAINER_IMPL(UberLight, Transform3D, OSG_UBERLIGHT_FIELDS)

namespace {

struct TypeRow
{
    const char* name;
    UberLight::LightUnit unit;
    bool hasExtent;
};

// Indexed by UberLight::LightType.
constexpr std::array<TypeRow, 6> typeRows{{
    {"Directional", UberLight::Lux, false},
    {"Point", UberLight::Candela, false},
    {"Spot", UberLight::Candela, false},
    {"Area", UberLight::Lumen, true},
    {"Sphere", UberLight::Lumen, true},
    {"Profile", UberLight::Candela, false},
}};

constexpr double fullSphere = 12.566370614359172; // steradian

// Indexed by UberLight::LightUnit.
constexpr std::array<double, 4> candelaPerUnit{1., 1. / fullSphere, 1., 683. / fullSphere};

constexpr Int32 numAttenuations = 3;

bool isBelow(Int32 value, std::size_t count)
{
    return value >= 0 && static_cast<std::size_t>(value) < count;
}

template<class Row, std::size_t Count>
const Row& at(const std::array<Row, Count>& rows, Int32 value)
{
    return rows.at(static_cast<std::size_t>(value));
}

template<class Enum>
Enum enumOr(Int32 stored, std::size_t count, Enum otherwise)
{
    return isBelow(stored, count) ? static_cast<Enum>(stored) : otherwise;
}

} // namespace

UberLight::UberLight(const UberLight& source) : Inherited(source)
{
    addRefCP(_sfVisibilityReference.getValue());
    addRefCP(_sfLensFlareEffect.getValue());
}

UberLight::~UberLight()
{
    assignCounted(_sfVisibilityReference.getValue(), NullFC);
    assignCounted(_sfLensFlareEffect.getValue(), NullFC);
}

const char* UberLight::lightTypeName(LightType type)
{
    return isBelow(type, typeRows.size()) ? at(typeRows, type).name : "";
}

bool UberLight::findLightType(const char* name, LightType& type)
{
    if (!name) return false;
    for (std::size_t row = 0; row < typeRows.size(); ++row) {
        if (std::strcmp(typeRows[row].name, name) != 0) continue;
        type = static_cast<LightType>(row);
        return true;
    }
    return false;
}

UberLight::LightUnit UberLight::defaultLightUnit(LightType type)
{
    return isBelow(type, typeRows.size()) ? at(typeRows, type).unit : Candela;
}

UberLight::LightAttenuation UberLight::getAttenuation() const
{
    return enumOr(UberLightBase::getAttenuation(), numAttenuations, NoAttenuation);
}

void UberLight::setAttenuation(LightAttenuation mode)
{
    if (!isBelow(mode, numAttenuations)) return;
    // The enumerators are the exponents of the distance.
    const int steeper = mode - getAttenuation();
    if (getAttenuationDistance() > 0.f)
        setIntensity(getIntensity() * std::pow(getAttenuationDistance(), Real32(steeper)));
    UberLightBase::setAttenuation(mode);
}

UberLight::LightType UberLight::getLightType() const
{
    return enumOr(UberLightBase::getLightType(), typeRows.size(), PointLight);
}

void UberLight::setLightType(LightType type)
{
    if (!isBelow(type, typeRows.size()) || type == getLightType()) return;
    UberLightBase::setLightType(type);
    setLightUnit(at(typeRows, type).unit);
    if (!at(typeRows, type).hasExtent) setScale(Vec3f(1.f, 1.f, 1.f));
}

UberLight::LightUnit UberLight::getLightUnit() const
{
    return enumOr(UberLightBase::getLightUnit(), candelaPerUnit.size(), Candela);
}

void UberLight::setLightUnit(LightUnit unit)
{
    const LightUnit old = getLightUnit();
    if (!isBelow(unit, candelaPerUnit.size()) || unit == old) return;
    setIntensity(static_cast<Real32>(getIntensity() * at(candelaPerUnit, old) / at(candelaPerUnit, unit)));
    UberLightBase::setLightUnit(unit);
}

void UberLight::setVisibilityReference(const NodePtr& node)
{
    assignCounted(_sfVisibilityReference.getValue(), node);
}

void UberLight::setLensFlareEffect(const LensFlareEffectPtr& effect)
{
    assignCounted(_sfLensFlareEffect.getValue(), effect);
}

OSG_END_NAMESPACE
