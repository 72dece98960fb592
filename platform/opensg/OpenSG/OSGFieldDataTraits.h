#pragma once

#include <OpenSG/OSGTypeBase.h>

#include <charconv>
#include <cstdio>
#include <cstring>
#include <string>
#include <type_traits>

namespace osg {

class FieldContainerPtrBase;

/// Names the field types of a value type: getSName() "SFReal32", getMName() "MFReal32", and its own type. Specialised
/// by OSG_FIELD_TYPE and OSG_HANDLE_FIELDS (OSGFieldTypes.h); there is no general answer.
template<class T, Int32 fieldNameSpace = 0>
struct FieldDataTraits;

/// The text form of a value.
template<class T>
struct OSG_BASELIB_DLLMAPPING FieldText
{
    static void write(const T& value, std::string& text)
    {
        if constexpr (std::is_same_v<T, bool>) {
            text += value ? "true" : "false";
        } else if constexpr (std::is_arithmetic_v<T>) {
            char buffer[64];
            text.append(buffer, std::to_chars(buffer, buffer + sizeof(buffer), value).ptr);
        } else if constexpr (std::is_same_v<T, std::string>) {
            text += value;
        } else if constexpr (std::is_base_of_v<FieldContainerPtrBase, T>) {
            char buffer[32];
            std::snprintf(buffer, sizeof(buffer), "%p", static_cast<const void*>(value.getBaseCPtr()));
            text += buffer;
        } else if constexpr (HasComponents<T>::value) {
            for (UInt32 i = 0; i < T::Size; ++i) {
                if (i) text += ' ';
                FieldText<typename T::ValueType>::write(value.getValues()[i], text);
            }
        }
    }

    /// False, and the value unchanged, when the text is not the form of a value.
    static bool read(const Char8* text, T& value)
    {
        if constexpr (std::is_same_v<T, std::string>) {
            value = text;
            return true;
        } else {
            T parsed{};
            if (!scan(text, parsed) || *skip(text) != '\0') return false;
            value = parsed;
            return true;
        }
    }

    /// Moves text behind the value.
    static bool scan(const Char8*& text, T& value)
    {
        text = skip(text);
        if constexpr (std::is_same_v<T, bool>) {
            for (const auto& [word, meaning] :
                 {Word{"true", true}, {"false", false}, {"TRUE", true}, {"FALSE", false}, {"1", true}, {"0", false}}) {
                if (std::strncmp(text, word, std::strlen(word)) == 0) {
                    text += std::strlen(word);
                    value = meaning;
                    return true;
                }
            }
            return false;
        } else if constexpr (std::is_arithmetic_v<T>) {
            const auto result = std::from_chars(text, text + std::strlen(text), value);
            text = result.ptr;
            return result.ec == std::errc();
        } else if constexpr (HasComponents<T>::value) {
            for (UInt32 i = 0; i < T::Size; ++i) {
                if (!FieldText<typename T::ValueType>::scan(text, value.getValues()[i])) return false;
            }
            return true;
        } else {
            return false;
        }
    }

private:
    struct Word
    {
        const Char8* text;
        bool meaning;
    };

    template<class V, class = void>
    struct HasComponents : std::false_type
    {
    };
    template<class V>
    struct HasComponents<V, std::void_t<decltype(std::declval<V&>().getValues()), decltype(V::Size)>> : std::true_type
    {
    };

    static const Char8* skip(const Char8* text) { return text + std::strspn(text, " \t\n,"); }
};

} // namespace osg
