#pragma once
// What the members share: out arguments, guards of reading, and one setter per family of properties. A
// property is a line of data for its family's setter, so that no two setters differ by accident.

#include "core/errors.h"
#include "core/property_frame.h"
#include "core/upcalls.h"
#include "platform/bstr.h"

#include <type_traits>

// Fills an out argument: S_OK or E_POINTER.
template<class Out, class Value> HRESULT Return(Out* result, Value value) noexcept
{
    if (!result)
        return E_POINTER;
    *result = static_cast<Out>(value);
    return S_OK;
}

inline HRESULT ReturnFlag(VARIANT_BOOL* result, bool on) noexcept
{
    return Return(result, on ? VARIANT_TRUE : VARIANT_FALSE);
}

// Hands out a counted reference, which may be null.
template<class Object> HRESULT ReturnReference(Object** result, Object* object) noexcept
{
    if (!result)
        return E_POINTER;
    *result = object;
    if (object)
        object->AddRef();
    return S_OK;
}

// Getters of what has no meaning in a form designer refuse it: S_OK, LORV_E_DESIGNMODE, or E_POINTER for
// the out argument, which is cleared.
template<class Out> HRESULT GuardRunTime(Grid& grid, Out* result)
{
    if (!result)
        return E_POINTER;
    *result = {};
    return IsDesignMode(grid) ? LORV_E_DESIGNMODE : S_OK;
}

// A getter of that kind for a field.
template<class Out, class Value> HRESULT ReturnAtRunTime(Grid& grid, Out* result, Value value)
{
    HRESULT guard = GuardRunTime(grid, result);
    return SUCCEEDED(guard) ? Return(result, value) : guard;
}

// Getters of per-row and per-column members refuse every index that is not in the table.
inline HRESULT CheckRow(const Grid& grid, LONG row) noexcept
{
    return IsRow(grid, row) ? S_OK : LORV_E_INDEX;
}
inline HRESULT CheckCol(const Grid& grid, LONG col) noexcept
{
    return IsCol(grid, col) ? S_OK : LORV_E_INDEX;
}

// Their setters take any negative index for all rows or columns. `apply(index)` gives nothing or an
// HRESULT, and the first failure ends the walk. The count is read anew at each step, since what `apply`
// releases can run foreign code.
template<class Apply> HRESULT ApplyToIndices(const int32_t& count, LONG index, Apply apply)
{
    if (index >= count)
        return LORV_E_INDEX;
    int first = index < 0 ? 0 : static_cast<int>(index);
    for (int each = first; each < count && (index < 0 || each == first); ++each) {
        if constexpr (std::is_void_v<decltype(apply(each))>)
            apply(each);
        else if (HRESULT result = apply(each); FAILED(result))
            return result;
    }
    return S_OK;
}
template<class Apply> HRESULT ForRows(Grid& grid, LONG row, Apply apply)
{
    return ApplyToIndices(grid.Rows, row, apply);
}
template<class Apply> HRESULT ForCols(Grid& grid, LONG col, Apply apply)
{
    return ApplyToIndices(grid.Cols, col, apply);
}

// Colours take any value. Only they notice that nothing changes, and then do nothing.
constexpr int NoDrawingObject = -2; // the painter reads the field itself
struct ColourProperty {
    DISPID Id;
    OLE_COLOR Grid::*Field;
    int DrawingObject = NoDrawingObject; // as RebuildGdi counts them
};
HRESULT SetColour(Grid& grid, const ColourProperty& property, OLE_COLOR value);

// Switches take bit 0 of the value.
struct SwitchProperty {
    DISPID Id;
    uint32_t Grid::*Word;
    uint32_t Bit;
    unsigned Steps = StepNone; // SetterStep
};
HRESULT SetSwitch(Grid& grid, const SwitchProperty& property, VARIANT_BOOL value);
inline HRESULT GetSwitch(const Grid& grid, const SwitchProperty& property, VARIANT_BOOL* result) noexcept
{
    return ReturnFlag(result, (grid.*property.Word & property.Bit) != 0);
}

// Enumerated words refuse what is past their last value, and negative values likewise. Some take an
// automation True for 1.
enum class MinusOne { Refused, IsOne };
template<class Field> struct EnumProperty {
    DISPID Id;
    Field Grid::*Member;
    unsigned Largest;
    unsigned Steps = StepNone; // SetterStep
    MinusOne True = MinusOne::Refused;
};
using WordProperty = EnumProperty<int16_t>;
using LongProperty = EnumProperty<int32_t>;

template<class Field> HRESULT SetEnum(Grid& grid, const EnumProperty<Field>& property, int value)
{
    if (value == -1 && property.True == MinusOne::IsOne)
        value = 1;
    if (static_cast<unsigned>(value) > property.Largest)
        return LORV_E_VALUE;
    grid.*property.Member = static_cast<Field>(value);
    FinishProperty(grid, property.Id, property.Steps);
    return S_OK;
}

// Pictures are shared with the host: the grid holds a reference, whether they are put or putref.
struct PictureProperty {
    DISPID Notified;
    IPictureDisp* Grid::*Field;
    unsigned Steps = StepRepaint; // SetterStep
};
HRESULT SetPicture(Grid& grid, const PictureProperty& property, IPictureDisp* value);
