#pragma once

#include <windows.h>

// The failure codes of the interface. Hosts compare them as numbers.
constexpr HRESULT LORV_E_MEMORY = static_cast<HRESULT>(0x800A0007); // a table, text or format could not grow
constexpr HRESULT LORV_E_NOTFOUND = static_cast<HRESULT>(0x800A0035);    // file not found
constexpr HRESULT LORV_E_CANNOTWRITE = static_cast<HRESULT>(0x800A0046); // file cannot be written
constexpr HRESULT LORV_E_BADFORMAT = static_cast<HRESULT>(0x800A0141);   // not a file of this kind
constexpr HRESULT LORV_E_VALUE = static_cast<HRESULT>(0x800A017C);       // property value out of range
constexpr HRESULT LORV_E_INDEX = static_cast<HRESULT>(0x800A017D);       // row, column or index out of range
constexpr HRESULT LORV_E_CANNOTSET = static_cast<HRESULT>(0x800A017F);   // property cannot be set
constexpr HRESULT LORV_E_DESIGNMODE = static_cast<HRESULT>(0x800A018A);  // not readable at design time

// These six carry error information with a text from the module's string table, see ReportError.
constexpr HRESULT LORV_E_BOUND = static_cast<HRESULT>(0x800A03E8);
constexpr HRESULT LORV_E_CANNOTREMOVE = static_cast<HRESULT>(0x800A03E9);
constexpr HRESULT LORV_E_CANNOTADD = static_cast<HRESULT>(0x800A03EA);
constexpr HRESULT LORV_E_CANNOTUPDATE = static_cast<HRESULT>(0x800A03EB);
constexpr HRESULT LORV_E_FIELDVALUE = static_cast<HRESULT>(0x800A03EC);
constexpr HRESULT LORV_E_SAFETY = static_cast<HRESULT>(0x800A03ED);
