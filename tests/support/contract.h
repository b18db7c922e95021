#pragma once
// The tables of the interface's contract, as tests read them.

#include "support/test_data.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

// The rows of a table under tests/data/contract, without its heading, cut at the tabs.
inline std::vector<std::vector<std::string>> ContractRows(const wchar_t* name)
{
    std::ifstream file(TestDataPath((std::wstring(L"contract/") + name).c_str()).c_str());
    EXPECT_TRUE(file.is_open());
    std::vector<std::vector<std::string>> rows;
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        std::vector<std::string> cells(1);
        for (char c : line)
            if (c == '\t')
                cells.emplace_back();
            else if (c != '\r')
                cells.back() += c;
        rows.push_back(cells);
    }
    return rows;
}
