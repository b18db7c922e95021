#pragma once
// Calls of members with arguments that nobody would choose, the same ones in every run.

#include "platform/com_ptr.h"
#include "platform/variant.h"

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <windows.h>

#include <oaidl.h>

struct MemberParameter {
    VARTYPE Type; // of the value itself; enumerations are VT_I4, objects VT_DISPATCH
    bool Optional;
};

struct CallableMember {
    std::wstring Name;
    DISPID Id;
    WORD Kind; // DISPATCH_METHOD and its like
    VARTYPE Result;
    std::vector<MemberParameter> Parameters;
};

// What a dispatch interface says that it can do, without what it inherits.
std::vector<CallableMember> MembersOf(ITypeInfo* info);

// Numbers below a limit from a seed; the standard library's own distributions differ from one to the next.
class Dice
{
public:
    explicit Dice(uint32_t seed) : engine_(seed) {}
    unsigned Below(unsigned limit) { return static_cast<unsigned>(engine_()) % limit; }
    bool OneIn(unsigned count) { return Below(count) == 0; }
    template<class T, size_t Count> const T& Any(const T (&choices)[Count])
    {
        return choices[Below(static_cast<unsigned>(Count))];
    }

private:
    std::mt19937 engine_;
};

// Values that a host may hand over, good and bad. Objects are taken from lists that the test fills.
class RandomValues
{
public:
    explicit RandomValues(Dice& dice) : dice_(dice) {}

    // Not counted. Wine loses references to the arguments of calls that it refuses. So where an object of
    // some interface is wanted one of the first list is given, which has them all, and a call with too few or
    // too many arguments has none.
    std::vector<IDispatch*> HostObjects, AnyObjects;
    bool GivesObjects = true;

    // A number like those that name rows, columns and settings; rarely a wild one.
    long Number();
    // As above, and never one that makes a table of gigabytes.
    long Count();
    const wchar_t* Text();
    // A value that means `number`, in some type.
    void SetNumber(VARIANT& value, long number);
    // A value of the type, or something else altogether.
    void Set(VARIANT& value, VARTYPE type);

private:
    void SetOfType(VARIANT& value, VARTYPE type);
    void SetStrange(VARIANT& value);
    void SetArray(VARIANT& value);
    void SetObject(VARIANT& value, VARTYPE type, const std::vector<IDispatch*>& objects);

    Dice& dice_;
};

// The arguments of one call, with the places that by-reference ones lead to.
class RandomArguments
{
public:
    static constexpr unsigned Capacity = 16;

    RandomArguments() = default;
    RandomArguments(const RandomArguments&) = delete;
    RandomArguments& operator=(const RandomArguments&) = delete;
    ~RandomArguments();

    // Mostly as many as the member has parameters.
    void Fill(const CallableMember& member, Dice& dice, RandomValues& values);
    DISPPARAMS* Get() { return &parameters_; }
    std::wstring Describe() const;

private:
    void MakeReference(unsigned slot, Dice& dice);

    VARIANT values_[Capacity] = {};
    VARIANT places_[Capacity] = {}; // what references lead to
    DISPID put_ = DISPID_PROPERTYPUT;
    DISPPARAMS parameters_ = {};
};
