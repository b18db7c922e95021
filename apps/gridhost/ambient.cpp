#include "ambient.h"

#include <olectl.h>

namespace
{
struct NameRow {
    const wchar_t* name;
    DISPID id;
};

constexpr DISPID paletteId = -726, rightToLeftId = -732;

constexpr NameRow nameRows[] = {
    {L"BackColor", DISPID_AMBIENT_BACKCOLOR},
    {L"DisplayName", DISPID_AMBIENT_DISPLAYNAME},
    {L"Font", DISPID_AMBIENT_FONT},
    {L"ForeColor", DISPID_AMBIENT_FORECOLOR},
    {L"LocaleID", DISPID_AMBIENT_LOCALEID},
    {L"MessageReflect", DISPID_AMBIENT_MESSAGEREFLECT},
    {L"ScaleUnits", DISPID_AMBIENT_SCALEUNITS},
    {L"TextAlign", DISPID_AMBIENT_TEXTALIGN},
    {L"UserMode", DISPID_AMBIENT_USERMODE},
    {L"UIDead", DISPID_AMBIENT_UIDEAD},
    {L"ShowGrabHandles", DISPID_AMBIENT_SHOWGRABHANDLES},
    {L"ShowHatching", DISPID_AMBIENT_SHOWHATCHING},
    {L"DisplayAsDefault", DISPID_AMBIENT_DISPLAYASDEFAULT},
    {L"SupportsMnemonics", DISPID_AMBIENT_SUPPORTSMNEMONICS},
    {L"AutoClip", DISPID_AMBIENT_AUTOCLIP},
    {L"Appearance", DISPID_AMBIENT_APPEARANCE},
    {L"Palette", paletteId},
    {L"RightToLeft", rightToLeftId},
};

constexpr DWORD systemColor = 0x80000000; // marks an OLE_COLOR that is an index of GetSysColor
} // namespace

static Variant MakeFont(LPCOLESTR name, LONG points)
{
    FONTDESC font = {};
    font.cbSizeofstruct = sizeof(font);
    font.lpstrName = const_cast<LPOLESTR>(name);
    font.cySize.int64 = points * 10000;
    font.sWeight = FW_NORMAL;
    font.sCharset = DEFAULT_CHARSET;
    IDispatch* object = nullptr;
    OleCreateFontIndirect(&font, __uuidof(IDispatch), reinterpret_cast<void**>(&object));
    return Variant::Object(object);
}

AmbientProperties::AmbientProperties(bool designMode)
{
    values_[DISPID_AMBIENT_BACKCOLOR] = Variant::Long(LONG(systemColor | COLOR_BTNFACE));
    values_[DISPID_AMBIENT_FORECOLOR] = Variant::Long(LONG(systemColor | COLOR_WINDOWTEXT));
    values_[DISPID_AMBIENT_FONT] = MakeFont(L"Tahoma", 8);
    values_[DISPID_AMBIENT_DISPLAYNAME] = Variant::Text(L"Grid");
    values_[DISPID_AMBIENT_LOCALEID] = Variant::Long(LONG(GetUserDefaultLCID()));
    values_[DISPID_AMBIENT_SCALEUNITS] = Variant::Text(L"Twips");
    values_[DISPID_AMBIENT_APPEARANCE] = Variant::Long(1);
    values_[DISPID_AMBIENT_USERMODE] = Variant::Bool(!designMode);
    values_[DISPID_AMBIENT_SHOWGRABHANDLES] = Variant::Bool(designMode);
    values_[DISPID_AMBIENT_SHOWHATCHING] = Variant::Bool(false);
    for (const DISPID id :
         {DISPID(DISPID_AMBIENT_UIDEAD), DISPID(DISPID_AMBIENT_MESSAGEREFLECT),
          DISPID(DISPID_AMBIENT_DISPLAYASDEFAULT), DISPID(DISPID_AMBIENT_SUPPORTSMNEMONICS), rightToLeftId})
        values_[id] = Variant::Bool(false);
    values_[DISPID_AMBIENT_AUTOCLIP] = Variant::Bool(true);
}

const VARIANT* AmbientProperties::Find(DISPID id) const
{
    const auto found = values_.find(id);
    return found == values_.end() ? nullptr : &found->second;
}

void AmbientProperties::Set(DISPID id, const VARIANT& value)
{
    CopyVariantIndirect(&values_[id], value);
}

void AmbientProperties::Remove(DISPID id)
{
    values_.erase(id);
}

DISPID AmbientProperties::IdOf(std::wstring_view name)
{
    for (const NameRow& row : nameRows)
        if (name.size() == wcslen(row.name) && !_wcsnicmp(row.name, name.data(), name.size()))
            return row.id;
    return DISPID_UNKNOWN;
}
