// What a page's script may do with files: by the browser that shows the page, and by its zone.
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "hosts/activex/script_origin.h"
#include "hosts/activex/text.h"
#include "tests/activex/com.h"
#include "tests/activex/com_player.h"
#include "tests/activex/page.h"
#include "tests/activex/stage.h"

namespace tabulon::client {
namespace {

namespace fs = std::filesystem;
using activex::ScriptOrigin;

constexpr wchar_t on_the_web[] = L"https://les.example/oefening.html",
                  on_this_machine[] = L"file:///C:/les/a.html";
constexpr DWORD local = URLZONE_LOCAL_MACHINE, intranet = URLZONE_INTRANET, trusted = URLZONE_TRUSTED,
                internet = URLZONE_INTERNET, restricted = URLZONE_UNTRUSTED, own_zone = URLZONE_USER_MIN;

class Origins : public ComTest {};

ScriptOrigin origin_of(Page& page) {
  return activex::origin_of(page.site());
}

TEST_F(Origins, WithoutABrowserAreAProgram) {
  EXPECT_EQ(activex::origin_of(nullptr), ScriptOrigin::Program);
  Page bare;
  EXPECT_EQ(origin_of(bare), ScriptOrigin::Program);
  EXPECT_EQ(origin_of(Page().named(L"C:\\Werk\\les.doc")), ScriptOrigin::Program);
}

TEST_F(Origins, ByTheZoneThatTheBrowserTells) {
  for (const DWORD zone : {local, intranet, trusted})
    EXPECT_EQ(origin_of(Page().in_zone(zone)), ScriptOrigin::TrustedPage) << zone;
  for (const DWORD zone : {internet, restricted, own_zone, static_cast<DWORD>(-1)})
    EXPECT_EQ(origin_of(Page().in_zone(zone)), ScriptOrigin::OtherPage) << zone;
}

TEST_F(Origins, ByTheAddressWhereverItStands) {
  EXPECT_EQ(origin_of(Page().with_document(on_the_web)), ScriptOrigin::OtherPage);
  EXPECT_EQ(origin_of(Page().in_browser(on_the_web)), ScriptOrigin::OtherPage);
  EXPECT_EQ(origin_of(Page().named(on_the_web)), ScriptOrigin::OtherPage);
  EXPECT_EQ(origin_of(Page().with_document(on_this_machine)), ScriptOrigin::TrustedPage);
  EXPECT_EQ(origin_of(Page().in_browser(on_this_machine)), ScriptOrigin::TrustedPage);
  EXPECT_EQ(origin_of(Page().named(on_this_machine)), ScriptOrigin::TrustedPage);
}

TEST_F(Origins, OfAnAddressThatTheBrowserMapsItself) {
  EXPECT_EQ(origin_of(Page().with_document(on_the_web).mapping(S_OK, intranet)), ScriptOrigin::TrustedPage);
  EXPECT_EQ(origin_of(Page().with_document(on_this_machine).mapping(S_OK, restricted)),
            ScriptOrigin::OtherPage);
  for (const HRESULT leaves_it : {INET_E_DEFAULT_ACTION, E_NOTIMPL}) {
    EXPECT_EQ(origin_of(Page().with_document(on_this_machine).mapping(leaves_it, restricted)),
              ScriptOrigin::TrustedPage);
    EXPECT_EQ(origin_of(Page().with_document(on_the_web).mapping(leaves_it, trusted)),
              ScriptOrigin::OtherPage);
  }
}

TEST_F(Origins, ThatNobodyCanTellAreNotTrusted) {
  EXPECT_EQ(origin_of(Page().in_zone({})), ScriptOrigin::OtherPage);
  EXPECT_EQ(origin_of(Page().with_document({})), ScriptOrigin::OtherPage);
  EXPECT_EQ(origin_of(Page().in_browser({})), ScriptOrigin::OtherPage);
  EXPECT_EQ(origin_of(Page().in_browser(L"")), ScriptOrigin::OtherPage);
  EXPECT_EQ(origin_of(Page().with_document(L"about:blank")), ScriptOrigin::OtherPage);
  EXPECT_EQ(origin_of(Page().with_document(on_this_machine).mapping(E_FAIL, local)), ScriptOrigin::OtherPage);
  EXPECT_EQ(origin_of(Page().mapping(S_OK, local)), ScriptOrigin::OtherPage);
}

TEST_F(Origins, AreAsTheWorstSignOfThemSays) {
  EXPECT_EQ(origin_of(Page().in_zone(local).with_document(on_the_web)), ScriptOrigin::OtherPage);
  EXPECT_EQ(origin_of(Page().in_zone(internet).with_document(on_this_machine)), ScriptOrigin::OtherPage);
  EXPECT_EQ(origin_of(Page().with_document(on_this_machine).in_browser(on_the_web)), ScriptOrigin::OtherPage);
  EXPECT_EQ(origin_of(Page().with_document(on_this_machine).in_browser({})), ScriptOrigin::OtherPage);
  EXPECT_EQ(origin_of(Page().in_zone(trusted).with_document(on_this_machine)), ScriptOrigin::TrustedPage);
}

class ScriptsFiles : public ComTest {
 protected:
  void SetUp() override {
    fs::create_directories(folder_);
    std::ofstream(folder_ / "oud.tbl") << "oud";
    ASSERT_TRUE(control_);
    ASSERT_EQ(code(as<IPersistStreamInit>(control_)->InitNew()), code(S_OK));
  }
  void TearDown() override {
    if (control_) as<IOleObject>(control_)->SetClientSite(nullptr);
    control_.Reset();
    CoFreeUnusedLibrariesEx(0, 0);  // closes what was left open
    fs::remove_all(folder_);
  }
  static void ask_to_be_safe(IUnknown* control) {
    ComPtr<IObjectSafety> safety;
    ASSERT_HRESULT_SUCCEEDED(control->QueryInterface(IID_PPV_ARGS(safety.GetAddressOf())));
    EXPECT_EQ(code(safety->SetInterfaceSafetyOptions(IID_IDispatch, 1, 1)), code(S_OK));
  }
  int error_of(const wchar_t* method, const std::wstring& name) {
    const ScriptError error = call(control_.Get(), method, {name.c_str()});
    return error.result == S_OK ? 0 : static_cast<int>(error.info.scode & 0xFFFF);
  }
  std::wstring in_folder(const wchar_t* name) const { return (folder_ / name).wstring(); }
  // The errors of saving, and of opening a file that is there.
  std::vector<int> errors() {
    return {error_of(L"SchrijfTableau", in_folder(L"nieuw.tbl")),
            error_of(L"LeesTableau", in_folder(L"oud.tbl"))};
  }
  void expect_refused() {
    EXPECT_EQ(errors(), (std::vector{70, 70}));
    EXPECT_FALSE(fs::exists(folder_ / "nieuw.tbl"));
  }
  void expect_admitted() {
    EXPECT_EQ(errors(), (std::vector{0, 54}));
    EXPECT_TRUE(fs::exists(folder_ / "nieuw.tbl"));
  }

  const fs::path folder_ =
      fs::temp_directory_path() / ("tabulon-zone-" + std::to_string(GetCurrentProcessId()));
  ComPtr<IDispatch> control_ = make_as<IDispatch>();
};

TEST_F(ScriptsFiles, AreRefusedToAPageThatIsNotTrusted) {
  Page page;
  page.in_zone(internet);
  as<IOleObject>(control_)->SetClientSite(&page);
  expect_refused();
  _bstr_t name(in_folder(L"nieuw.tbl").c_str());
  EXPECT_EQ(code(as<ILPctrl>(control_)->SchrijfTableau(name.GetAddress())), code(run_time_error(70)));
  EXPECT_FALSE(fs::exists(folder_ / "nieuw.tbl"));
  as<IOleObject>(control_)->SetClientSite(nullptr);
}

// It has no place on the page, and so no site. A browser asks it to be safe before the script may use it.
TEST_F(ScriptsFiles, AreRefusedToAPageWhoseScriptMakesTheControlItself) {
  ask_to_be_safe(control_.Get());
  expect_refused();
}

TEST_F(ScriptsFiles, AreOpenToATrustedPageThatAsksTheControlToBeSafe) {
  Page page;
  page.in_zone(trusted);
  as<IOleObject>(control_)->SetClientSite(&page);
  ask_to_be_safe(control_.Get());
  expect_admitted();
  as<IOleObject>(control_)->SetClientSite(nullptr);
}

TEST_F(ScriptsFiles, AreOpenToAProgramThatAsksForSafeDataAlone) {
  const ComPtr<IObjectSafety> safety = as<IObjectSafety>(control_);
  EXPECT_EQ(code(safety->SetInterfaceSafetyOptions(IID_IPersistPropertyBag, 2, 2)), code(S_OK));
  EXPECT_EQ(code(safety->SetInterfaceSafetyOptions(IID_IDispatch, 1, 0)), code(E_FAIL));
  expect_admitted();
}

TEST_F(ScriptsFiles, AreOpenToATrustedPage) {
  Page page;
  page.in_zone(intranet).with_document(on_this_machine);
  as<IOleObject>(control_)->SetClientSite(&page);
  expect_admitted();
  as<IOleObject>(control_)->SetClientSite(nullptr);
}

// A name on another host would tell that host who is at the machine. No host is asked here: the page is
// refused first.
TEST_F(ScriptsFiles, AreOnNoOtherHostInABrowser) {
  Page page;
  page.in_zone(trusted);
  as<IOleObject>(control_)->SetClientSite(&page);
  EXPECT_EQ(error_of(L"SchrijfTableau", L"\\\\les.invalid\\map\\a.tbl"), 70);
  EXPECT_EQ(error_of(L"LeesTableau", L"//les.invalid/map/a.tbl"), 70);
  as<IOleObject>(control_)->SetClientSite(nullptr);
}

TEST_F(ScriptsFiles, WithNamesOfDevicesAreError52) {
  EXPECT_EQ(error_of(L"SchrijfTableau", L"nul.tbl"), 52);
  EXPECT_EQ(error_of(L"SchrijfTableau", in_folder(L"oud.tbl:b")), 52);
}

TEST_F(ScriptsFiles, LeftOpenAre511AtMost) {
  for (int number = 1; number <= 511; ++number)
    ASSERT_EQ(error_of(L"LeesTableau", in_folder(L"oud.tbl")), 54);
  EXPECT_EQ(errors(), (std::vector{67, 67}));
  EXPECT_EQ(error_of(L"LeesTableau", L"*"), 67);
}

// The person says where, whatever page this is.
TEST_F(ScriptsFiles, AreNotWhatThePersonSavesInAContainer) {
  activex::on_stage({}, [&](activex::Container& container, activex::Person& person) {
    activex::ComPlayer player(
        container, person, {.dumps = {}, .folder = folder_.string() + "\\", .project = {}, .pictures = {}});
    const auto play = [&](std::string_view text) {
      for (const auto& command : scenarios::read_scenario(text)) player.play(command);
    };
    play("show\n");
    EXPECT_TRUE(container.thread().run([&container] { ask_to_be_safe(container.control()); }));
    play("call SchrijfTableau = nieuw.tbl\nsee error 70\n");
    play(
        "click cmd_Bestand\nchoose mnu_Tableau_Opslaan_Als\nsave as nieuw.tbl\nsee idle\nsee focus "
        "txtFocus\n");
    player.end();
    for (const std::string& failure : player.failures()) ADD_FAILURE() << failure;
  });
  EXPECT_TRUE(fs::exists(folder_ / "nieuw.tbl"));
}

}  // namespace
}  // namespace tabulon::client
