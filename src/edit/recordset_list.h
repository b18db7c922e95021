#pragma once
// A list for a drop-down from the records of a recordset, an object of the host of which only names are
// known.

#include "platform/bstr.h"

// `fieldList`: names apart by commas, bars, tabs or line ends; a "*" in front marks the column whose text is
// the item's. `keyField` and `backColor` may be missing. False, whatever went wrong, and then `list` is
// empty.
bool BuildRecordsetList(IDispatch* recordset, const wchar_t* fieldList, const VARIANT& keyField,
                        const VARIANT& backColor, Bstr& list);
