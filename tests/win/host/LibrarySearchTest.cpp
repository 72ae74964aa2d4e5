#include "host/windows/LibrarySearch.h"

#include "Fixtures.h"
#include "host/GmModuleLoader.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace
{
namespace fs = std::filesystem;

constexpr auto libraryName = L"libhost_missing_library.dll";

// A folder that is the current one and has the library which the module Dependent.grx needs; when it is loaded it
// leaves a file "trace" there.
class LibrarySearch : public testing::Test
{
protected:
    LibrarySearch() : m_before(fs::current_path())
    {
        copyTo(m_current, fixture(L"hidden\\").c_str(), libraryName);
        fs::current_path(fs::path(m_current.path().c_str()));
    }
    ~LibrarySearch() override
    {
        fs::current_path(m_before);
        ::SetDllDirectoryW(nullptr);
    }

    static void copyTo(const TemporaryFolder& folder, const fs::path& from, const fs::path& name)
    {
        fs::copy_file(from / name, fs::path(folder.at(name).c_str()));
    }

    bool wasRun() const { return m_current.names().contains("trace"); }

    static OdString whyNotLoaded(const OdString& file)
    {
        const auto [module, reason] = GmModuleLoader::load(file);
        EXPECT_EQ(module, nullptr);
        return reason;
    }

    TemporaryFolder m_current;

private:
    fs::path m_before;
};

constexpr auto missing = L"a library that it needs is missing.";
constexpr auto noModule = L"it is not a module: it does not export odrxCreateModuleObject and odrxGetAPIVersion.";
} // namespace

TEST_F(LibrarySearch, modulesLibraryIsNotTakenFromCurrentFolder)
{
    EXPECT_TRUE(whyNotLoaded(fixture(L"Dependent.grx")).view().ends_with(missing));
    EXPECT_FALSE(wasRun());
}

TEST_F(LibrarySearch, aModulesLibraryIsNotTakenFromPath)
{
    std::vector<wchar_t> path(::GetEnvironmentVariableW(L"PATH", nullptr, 0) + std::size_t{1});
    ::GetEnvironmentVariableW(L"PATH", path.data(), static_cast<DWORD>(path.size()));
    ::SetEnvironmentVariableW(L"PATH", m_current.path().c_str());
    const OdString reason = whyNotLoaded(fixture(L"Dependent.grx"));
    ::SetEnvironmentVariableW(L"PATH", path.data());
    EXPECT_TRUE(reason.view().ends_with(missing)) << reason;
    EXPECT_FALSE(wasRun());
}

TEST_F(LibrarySearch, aModulesLibraryIsTakenFromBesideIt)
{
    const TemporaryFolder folder;
    copyTo(folder, fixture(L"").c_str(), L"Dependent.grx");
    copyTo(folder, fixture(L"hidden\\").c_str(), libraryName);
    // It has its library now, so the refusal is for its missing exports.
    const OdString reason = whyNotLoaded(folder.at(L"Dependent.grx"));
    EXPECT_TRUE(reason.view().ends_with(noModule)) << reason;
    EXPECT_TRUE(wasRun());
}

TEST_F(LibrarySearch, theCurrentFolderIsDropped)
{
    dropCurrentFolderFromSearch();
    EXPECT_FALSE(LibraryHandle(::LoadLibraryW(libraryName)));
    EXPECT_FALSE(wasRun());

    // So the library could have been loaded.
    ::SetDllDirectoryW(nullptr);
    EXPECT_TRUE(LibraryHandle(::LoadLibraryW(libraryName)));
    EXPECT_TRUE(wasRun());
}
