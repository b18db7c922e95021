// A type library read into plain tables, so that tests can compare it with what hosts were promised.
#pragma once

#include <map>
#include <string>
#include <vector>

#include <windows.h>

struct TypeLibraryEntry {
    std::wstring name;
    MEMBERID id = 0;
    wchar_t kind = L'm'; // r get, w put, s putref, m method
    std::wstring result;
    std::vector<std::wstring> arguments; // "I4* Position", in order
    bool byReferenceIsInOut = true;      // every argument by reference is marked in and out
    int optionalCount = 0;
    WORD flags = 0;
    std::wstring help;
};

using TypeLibraryValues = std::map<std::wstring, long>;

struct TypeLibraryClass {
    std::wstring defaultInterface;
    std::wstring defaultSource;
};

struct TypeLibrary {
    std::wstring name;
    int majorVersion = 0;
    int minorVersion = 0;
    std::map<std::wstring, std::vector<TypeLibraryEntry>> interfaces; // without what they inherit
    std::map<std::wstring, TypeLibraryValues> enumerations;
    std::map<std::wstring, TypeLibraryClass> classes;
};

// The library inside a module; its name stays empty when the module cannot be read.
TypeLibrary ReadTypeLibrary(const std::wstring& module);

// The module under test: the environment variable LORV_DLL, else lorv8l.dll beside the test program.
std::wstring ModuleUnderTest();
