#pragma once
// Variants in a property stream: a u16 type, then the value, little-endian. Numbers are stored as they are,
// objects with their class id and their own data, everything else as text.

#include <oaidl.h>
#include <objidl.h>

HRESULT WriteVariantToStream(IStream& stream, const VARIANT& value);
// S_FALSE with a null object when the class of a stored object is not there. `value` must be initialised.
HRESULT ReadVariantFromStream(IStream& stream, VARIANT& value);

// Both fail with E_FAIL when the stream is shorter or takes less.
HRESULT ReadBytes(IStream& stream, void* bytes, ULONG count);
HRESULT WriteBytes(IStream& stream, const void* bytes, ULONG count);
