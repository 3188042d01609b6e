#include "ServerModule.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace {

/// The built file as the loader has it in memory.
class Image
{
public:
    explicit Image(HMODULE module) : base_(reinterpret_cast<const BYTE*>(module)) {}

    std::set<std::string> exports() const
    {
        std::set<std::string> names;
        const auto& table = at<IMAGE_EXPORT_DIRECTORY>(directory(IMAGE_DIRECTORY_ENTRY_EXPORT));
        for (DWORD index = 0; index < table.NumberOfNames; ++index)
            names.insert(&at<char>((&at<DWORD>(table.AddressOfNames))[index]));
        return names;
    }

    std::set<std::string> importedModules() const
    {
        std::set<std::string> names;
        const auto* each = &at<IMAGE_IMPORT_DESCRIPTOR>(directory(IMAGE_DIRECTORY_ENTRY_IMPORT));
        for (; each->Name != 0; ++each) {
            std::string name = &at<char>(each->Name);
            std::ranges::transform(name, name.begin(),
                                   [](unsigned char c) { return static_cast<char>(tolower(c)); });
            names.insert(name);
        }
        return names;
    }

private:
    template <class Type>
    const Type& at(DWORD address) const
    {
        return *reinterpret_cast<const Type*>(base_ + address);
    }

    DWORD directory(int index) const
    {
        const auto& headers = at<IMAGE_NT_HEADERS>(static_cast<DWORD>(at<IMAGE_DOS_HEADER>(0).e_lfanew));
        return headers.OptionalHeader.DataDirectory[index].VirtualAddress;
    }

    const BYTE* base_;
};

TEST(Exports, areTheEntryPointsAndTheValueTypes)
{
    const ServerModule server;
    std::set<std::string> plain;
    std::set<std::string> decorated;
    for (const std::string& name : Image(server.handle()).exports())
        (name.starts_with("_Z") ? decorated : plain).insert(name);
    EXPECT_EQ(plain, (std::set<std::string>{"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer",
                                            "DllUnregisterServer"}));
    const auto has = [&](const char* part) {
        return std::ranges::any_of(decorated,
                                   [&](const std::string& name) { return name.find(part) != name.npos; });
    };
    EXPECT_TRUE(has("QdxStringC")) << "the constructors";
    EXPECT_TRUE(has("QdxString6append"));
    for (const std::string& name : decorated)
        EXPECT_TRUE(name.find("Qdx") != name.npos || name.find("RegEntry") != name.npos) << name;
}

TEST(Exports, needNothingButTheSystem)
{
    const ServerModule server;
    for (const std::string& name : Image(server.handle()).importedModules()) {
        wchar_t folder[MAX_PATH];
        GetSystemDirectoryW(folder, MAX_PATH);
        const std::wstring file = std::wstring(folder) + L"\\" + std::wstring(name.begin(), name.end());
        const bool isSystem =
            name.starts_with("api-ms-win-") || GetFileAttributesW(file.c_str()) != INVALID_FILE_ATTRIBUTES;
        EXPECT_TRUE(isSystem) << name;
        EXPECT_FALSE(name.starts_with("libstdc++") || name.starts_with("libgcc") ||
                     name.starts_with("libwinpthread"))
            << name;
    }
}

} // namespace
