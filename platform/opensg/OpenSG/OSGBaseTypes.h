#pragma once

#include <OpenSG/OSGConfig.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

typedef unsigned int GLenum;

namespace osg {

typedef char Char8;
typedef signed char SChar8;
typedef unsigned char UChar8;

typedef std::int8_t Int8;
typedef std::uint8_t UInt8;
typedef std::int16_t Int16;
typedef std::uint16_t UInt16;
typedef std::int32_t Int32;
typedef std::uint32_t UInt32;
typedef std::int64_t Int64;
typedef std::uint64_t UInt64;

typedef float Real32;
typedef double Real64;
typedef long double Real128;

/// Seconds.
typedef Real64 Time;

/// A set of fields of one container: bit n stands for the field with id n. Ids start at 1, so bit 0 is never used.
typedef UInt64 BitVector;

/// The tolerance of == between vectors, points, colours, quaternions and matrices, per component and absolute.
/// Because of it == does not answer "has the value changed".
inline constexpr Real32 Eps = 1E-6f;

namespace FieldBits {
inline constexpr BitVector NoField = 0;
inline constexpr BitVector AllFields = ~BitVector(0);
} // namespace FieldBits

/// What an edit tells changed() about its cause: a free set of bits, passed on as given.
namespace ChangedOrigin {
inline constexpr UInt32 External = 1; ///< an ordinary edit; the default
inline constexpr UInt32 Sync = 2;     ///< a change list was applied
inline constexpr UInt32 Child = 4;    ///< a container that this one refers to has changed
inline constexpr UInt32 Abstract = 8; ///< the fields were filled generically; never for an ordinary edit
inline constexpr UInt32 AbstrIgnoreCore = 0x100;
inline constexpr UInt32 AbstrIgnoreChild = 0x200;
inline constexpr UInt32 AbstrCheckValid = 0x400;
inline constexpr UInt32 AbstrIncRefCount = 0x800;
} // namespace ChangedOrigin

template<class T>
struct OSG_BASELIB_DLLMAPPING TypeTraits
{
    static constexpr T getZeroElement() { return T(0); }
    static constexpr T getOneElement() { return T(1); }
    static constexpr T getMax() { return std::numeric_limits<T>::max(); }
    static constexpr T getMin() { return std::numeric_limits<T>::lowest(); }

    /// Equality of one component: within Eps for floating point, exact for integers.
    static bool isEqual(T a, T b)
    {
        if constexpr (std::is_floating_point_v<T>) {
            return std::abs(a - b) <= T(Eps);
        } else {
            return a == b;
        }
    }
};

} // namespace osg
