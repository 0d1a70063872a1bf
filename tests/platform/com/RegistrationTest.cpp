#include <cstdlib>
#include <fstream>

#include <gtest/gtest.h>

#include "core/qmcls.h"
#include "platform/com/ErrorInfo.h"
#include "platform/com/Lifetime.h"
#include "platform/com/Registration.h"
#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;

// A user's data folder of its own for each test.
class Registration : public testing::Test {
  protected:
    void SetUp() override {
        setenv("XDG_DATA_HOME", folder.Path().c_str(), 1);
        setenv("XDG_DATA_DIRS", ("relative:" + (folder / "machine").string()).c_str(), 1);
    }

    test::TempFolder folder;
};

TEST_F(Registration, RegisteredTheClassIsMadeByNameAndByClsid) {
    ASSERT_EQ(DllRegisterServer(), S_OK);
    ASSERT_EQ(DllRegisterServer(), S_OK) << "registering again replaces the file";
    for (const char16_t* name :
         {u"QmClass.clQm", u"qmclass.CLQM", u"{b551eca0-2f06-47cd-9de9-ddd9c381468c}"}) {
        IDispatch* made = nullptr;
        ASSERT_EQ(CreateObject(name, &made), S_OK);
        void* face = nullptr;
        EXPECT_EQ(made->QueryInterface(IID__clQm, &face), S_OK);
        static_cast<_clQm*>(face)->Release();
        EXPECT_EQ(made->Release(), 0U);
    }
    ASSERT_EQ(DllUnregisterServer(), S_OK);
    EXPECT_EQ(DllUnregisterServer(), S_OK) << "nothing to remove is no failure";
    EXPECT_TRUE(fs::is_empty(folder / "qmclasses"));
}

TEST_F(Registration, UnknownClassesAndMissingLibrariesAreToldApart) {
    IDispatch* made = nullptr;
    EXPECT_EQ(CreateObject(u"QmClass.clQm", &made), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(made, nullptr);
    com::Write({"QmClass.clQm", CLSID_clQm, folder / "libgone.so"});
    EXPECT_EQ(CreateObject(u"QmClass.clQm", &made), CO_E_DLLNOTFOUND);
    com::Write({"QmClass.other", GUID{1, 2, 3, {}}, com::ThisLibrary()});
    EXPECT_EQ(CreateObject(u"QmClass.other", &made), CLASS_E_CLASSNOTAVAILABLE);
    SetErrorInfo(0, nullptr);
}

TEST_F(Registration, TheMachinesClassesStandBehindTheUsersOwn) {
    fs::create_directories(folder / "machine/qmclasses");
    std::ofstream(folder / "machine/qmclasses/QmClass.clQm.class")
        << "ProgID=QmClass.clQm\nCLSID={B551ECA0-2F06-47CD-9DE9-DDD9C381468C}\nLibrary=/machine/lib.so\n";
    EXPECT_EQ(com::Find("QmClass.clQm")->Library, "/machine/lib.so");
    com::Write({"QmClass.clQm", CLSID_clQm, "/own/lib.so"});
    EXPECT_EQ(com::Find("QmClass.clQm")->Library, "/own/lib.so");
}

TEST_F(Registration, ForeignFilesInTheFolderDoNotMatter) {
    fs::create_directories(folder / "qmclasses/dir.class");
    std::ofstream(folder / "qmclasses/broken.class") << "ProgID=QmClass.clQm\nCLSID=none\n\nLibrary\n";
    EXPECT_FALSE(com::Find("QmClass.clQm"));
    com::Write({"QmClass.clQm", CLSID_clQm, "/lib/with = and blanks.so"});
    EXPECT_EQ(com::Find("QmClass.clQm").value().Library, "/lib/with = and blanks.so");
}

TEST_F(Registration, AFolderThatCannotBeMadeIsTold) {
    std::ofstream(folder / "qmclasses") << "a file in the way";
    EXPECT_EQ(DllRegisterServer(), SELFREG_E_CLASS);
    unsetenv("XDG_DATA_HOME");
    setenv("HOME", folder.Path().c_str(), 1);
    EXPECT_EQ(com::ClassesFolder(), folder / ".local/share/qmclasses");
    setenv("XDG_DATA_HOME", "relative", 1);
    EXPECT_EQ(com::ClassesFolder(), folder / ".local/share/qmclasses") << "only absolute folders count";
}

TEST(Lifetime, EveryObjectAndLockKeepsTheLibraryLoaded) {
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
    void* made = nullptr;
    EXPECT_EQ(DllGetClassObject(IID_NULL, IID_IClassFactory, &made), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(DllGetClassObject(CLSID_clQm, IID_IDispatch, &made), E_NOINTERFACE);
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
    ASSERT_EQ(DllGetClassObject(CLSID_clQm, IID_IClassFactory, &made), S_OK);
    EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
    auto* factory = static_cast<IClassFactory*>(made);
    EXPECT_EQ(factory->CreateInstance(factory, IID_IUnknown, &made), CLASS_E_NOAGGREGATION);
    ASSERT_EQ(factory->CreateInstance(nullptr, IID__clQm, &made), S_OK);
    factory->LockServer(1);
    EXPECT_EQ(factory->Release(), 0U);
    auto* object = static_cast<_clQm*>(made);

    ASSERT_EQ(object->QueryInterface(IID_ISupportErrorInfo, &made), S_OK);
    auto* support = static_cast<ISupportErrorInfo*>(made);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID__clQm), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IClassFactory), S_FALSE);
    void* first = nullptr;
    void* second = nullptr;
    support->QueryInterface(IID_IUnknown, &first);
    object->QueryInterface(IID_IUnknown, &second);
    EXPECT_EQ(first, second) << "an object has one identity";
    EXPECT_EQ(object->QueryInterface(IID_IErrorInfo, &made), E_NOINTERFACE);
    EXPECT_EQ(made, nullptr);
    for (int i = 0; i < 3; ++i) object->Release();
    EXPECT_EQ(object->Release(), 0U);

    EXPECT_EQ(DllCanUnloadNow(), S_FALSE) << "a lock counts too";
    com::InUse::Unlock();
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

}  // namespace
