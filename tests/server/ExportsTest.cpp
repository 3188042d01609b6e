#include "ServerModule.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cxxabi.h>
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

    /// With those that only have a number.
    std::size_t exportedFunctions() const
    {
        return at<IMAGE_EXPORT_DIRECTORY>(directory(IMAGE_DIRECTORY_ENTRY_EXPORT)).NumberOfFunctions;
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

std::set<std::string> readable(const std::set<std::string>& decorated)
{
    const std::string size = "unsigned long long";
    std::set<std::string> names;
    for (const std::string& name : decorated) {
        char* const made = abi::__cxa_demangle(name.c_str(), nullptr, nullptr, nullptr);
        std::string text = made != nullptr ? made : name;
        std::free(made);
        for (std::size_t at = text.find(size); at != std::string::npos; at = text.find(size))
            text.replace(at, size.size(), "size_t");
        names.insert(text);
    }
    return names;
}

TEST(Exports, areTheEntryPointsAndTheValueTypes)
{
    const ServerModule server;
    std::set<std::string> plain;
    std::set<std::string> decorated;
    for (const std::string& name : Image(server.handle()).exports())
        (name.starts_with("_Z") ? decorated : plain).insert(name);
    EXPECT_EQ(plain, (std::set<std::string>{"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer",
                                            "DllUnregisterServer"}));
    // The overloads that a constructor, and the versions that a destructor, has share their name.
    EXPECT_EQ(readable(decorated), (std::set<std::string>{
                                       "QdxString::QdxString()",
                                       "QdxString::QdxString(QdxString const&)",
                                       "QdxString::QdxString(QdxString&&)",
                                       "QdxString::QdxString(char const*)",
                                       "QdxString::QdxString(char const*, size_t)",
                                       "QdxString::append(QdxString const&)",
                                       "QdxString::append(QdxString const&, size_t)",
                                       "QdxString::append(char const*)",
                                       "QdxString::append(char const*, size_t)",
                                       "QdxString::data() const",
                                       "QdxString::find(QdxString const&) const",
                                       "QdxString::first(QdxString const&) const",
                                       "QdxString::first(char) const",
                                       "QdxString::hash() const",
                                       "QdxString::insert(size_t, QdxString const&)",
                                       "QdxString::isEmpty() const",
                                       "QdxString::last(char) const",
                                       "QdxString::length() const",
                                       "QdxString::operator=(QdxString const&)",
                                       "QdxString::operator=(QdxString&&)",
                                       "QdxString::operator=(char const*)",
                                       "QdxString::remove(size_t)",
                                       "QdxString::remove(size_t, size_t)",
                                       "QdxString::replaceStr(QdxString const&, QdxString const&)",
                                       "QdxString::startsWith(char const*) const",
                                       "QdxString::toLower()",
                                       "QdxString::toUpper()",
                                       "QdxString::~QdxString()",
                                       "operator!=(QdxString const&, QdxString const&)",
                                       "operator<(QdxString const&, QdxString const&)",
                                       "operator==(QdxString const&, QdxString const&)",
                                       "operator>(QdxString const&, QdxString const&)",
                                   }));
}

TEST(Exports, haveNamesAllOfThem)
{
    const ServerModule server;
    const Image image(server.handle());
    EXPECT_EQ(image.exportedFunctions(), image.exports().size());
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
