// Tableaux on the disk of this machine, and what a disk refuses.
#include <unistd.h>

#include "hosts/headless/disk_files.h"
#include "tests/files/files_fixture.h"

namespace tabulon {
namespace {

namespace fs = std::filesystem;

// Someone who may only do what permissions say, for as long as it lives: an administrator may do anything.
class OrdinaryPerson {
 public:
  OrdinaryPerson() : before_(geteuid()) {
    if (before_ == 0) changed_ = seteuid(nobody) == 0;
  }
  ~OrdinaryPerson() {
    if (changed_ && seteuid(before_) != 0) std::abort();
  }
  bool is_one() const { return geteuid() != 0; }

 private:
  static constexpr uid_t nobody = 65534;
  uid_t before_;
  bool changed_ = false;
};

class OnDisk : public FilesTest {
 protected:
  void SetUp() override {
    fs::create_directories(folder);
    host.use_files(disk);
    open(row_of_each_kind);
    before = everything();
  }
  void TearDown() override {
    model.open_files.clear();
    fs::remove_all(folder);
  }

  std::string in_folder(std::string_view name) const { return (folder / name).string(); }
  std::string put(std::string_view name, std::string_view bytes) const {
    std::ofstream(folder / name, std::ios::binary) << bytes;
    return in_folder(name);
  }
  int error_of_saving(const std::string& name) { return number_of(control.SchrijfTableau(name)); }
  int error_of_opening(const std::string& name) { return number_of(control.LeesTableau(name)); }

  // By the menu the same refusals say nothing, and by either way nothing of the model is lost.
  void expect_silence(const std::string& name) {
    for (const char* item : {"mnu_Tableau_Opslaan_Als", "mnu_Openen"}) {
      ASSERT_TRUE(choose(item));
      host.answer_file_dialog(name);
      host.answer_all();
      expect_nothing_was_said();
      EXPECT_EQ(everything(), before) << item;
    }
  }

  const fs::path folder = fs::temp_directory_path() / ("tabulon-tableaux-" + std::to_string(getpid()));
  platform::DiskFiles disk;
  std::string before;
};

TEST_F(OnDisk, ATableauIsWrittenToTheByte) {
  open();
  const std::string name = put("a.tbl", std::string(100'000, 'x'));
  EXPECT_EQ(error_of_saving(name), 0);
  EXPECT_EQ(contents_of(name), golden("default-problem.tbl"));
}

TEST_F(OnDisk, SavingByTheMenuWritesIt) {
  choose("mnu_Tableau_Opslaan_Als");
  host.answer_file_dialog(in_folder("les één.tbl"));
  host.answer_all();
  EXPECT_EQ(contents_of(in_folder("les één.tbl")), written(model));
  expect_nothing_was_said();
}

TEST_F(OnDisk, OpeningIsError54AndTheFileStaysOpen) {
  const std::string name = put("a.tbl", golden("default-problem.tbl"));
  const auto open_by_this_process = [&] {
    const fs::directory_iterator handles("/proc/self/fd");
    return std::count_if(begin(handles), end(handles), [&](const fs::directory_entry& handle) {
      std::error_code ignored;
      return fs::read_symlink(handle.path(), ignored) == fs::canonical(name);
    });
  };
  EXPECT_EQ(error_of_opening(name), 54);
  EXPECT_EQ(contents_of(name), golden("default-problem.tbl"));
  EXPECT_EQ(everything(), before);
  if (fs::exists("/proc/self/fd")) EXPECT_EQ(open_by_this_process(), 1);
}

TEST_F(OnDisk, LeftOpenAre511FilesAtMost) {
  const std::string name = put("a.tbl", "");
  for (int number = 1; number <= 511; ++number) ASSERT_EQ(error_of_opening(name), 54) << number;
  EXPECT_EQ(error_of_opening(name), 67);
  EXPECT_EQ(error_of_opening("*"), 67);
  EXPECT_EQ(error_of_saving(in_folder("b.tbl")), 67);
  EXPECT_FALSE(fs::exists(folder / "b.tbl"));
  expect_silence(name);
}

TEST_F(OnDisk, AFullDiskIsError61) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "this machine has no device that is always full";
  EXPECT_EQ(error_of_saving("/dev/full"), 61);
  EXPECT_EQ(everything(), before);
  expect_silence("/dev/full");
}

// More than the C library gathers before it writes, so that the disk refuses in between.
TEST_F(OnDisk, AFullDiskIsError61InTheMiddleOfALargeTableauToo) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "this machine has no device that is always full";
  open(numbered(20, 10));
  before = everything();
  ASSERT_GT(written(model).size(), 4096U);
  EXPECT_EQ(error_of_saving("/dev/full"), 61);
  EXPECT_EQ(everything(), before);
}

TEST_F(OnDisk, AFolderInPlaceOfAFileIsError70) {
  EXPECT_EQ(error_of_saving(folder.string()), 70);
  EXPECT_EQ(error_of_opening(folder.string()), 70);
  expect_silence(folder.string());
}

TEST_F(OnDisk, AFileThatMayNotBeTouchedIsError70) {
  const std::string name = put("dicht.tbl", "van een ander");
  fs::permissions(name, fs::perms::none);
  fs::permissions(folder, fs::perms::owner_all | fs::perms::others_exec | fs::perms::others_read);
  {
    const OrdinaryPerson person;
    if (!person.is_one()) GTEST_SKIP() << "this person may touch everything";
    EXPECT_EQ(error_of_saving(name), 70);
    EXPECT_EQ(error_of_opening(name), 70);
    expect_silence(name);
  }
  fs::permissions(name, fs::perms::owner_all);
  EXPECT_EQ(contents_of(name), "van een ander");
}

TEST_F(OnDisk, AFolderThatIsMissingIsError76) {
  for (const std::string& name : {in_folder("weg/a.tbl"), put("bestand", "x") + "/a.tbl"}) {
    EXPECT_EQ(error_of_saving(name), 76) << name;
    EXPECT_EQ(error_of_opening(name), 76) << name;
    expect_silence(name);
  }
}

TEST_F(OnDisk, ANameThatNoFileCanHaveIsError52) {
  for (const std::string& name :
       {std::string("*.tbl"), in_folder("a?.tbl"), std::string(), std::string(10'000, 'x'),
        in_folder(std::string(10'000, 'x')), in_folder(std::string("a\0b", 3))}) {
    EXPECT_EQ(error_of_saving(name), 52) << name.size();
    EXPECT_EQ(error_of_opening(name), 52) << name.size();
    expect_silence(name);
  }
  EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(OnDisk, AFileThatIsGoneWhenItIsOpenedIsError53) {
  const std::string name = put("a.tbl", golden("default-problem.tbl"));
  choose("mnu_Openen");
  fs::remove(name);
  host.answer_file_dialog(name);
  host.answer_all();
  expect_nothing_was_said();
  EXPECT_EQ(everything(), before);
  EXPECT_EQ(error_of_opening(name), 53);
}

TEST_F(OnDisk, AFileThatIsCutWhileItIsReadIsError62) {
  const std::string name = put("a.tbl", golden("thirty-columns.tbl"));
  auto file = platform::TextFile::open(disk, name, platform::TextFile::Mode::Input);
  ASSERT_TRUE(file);
  const std::string header = file->read_line().value_or("");
  fs::resize_file(name, 0);
  EXPECT_EQ(number_of(read_after_header(model, header, *file)), 62);
}

TEST_F(OnDisk, AFileThatVanishesWhileItIsReadIsReadToItsEnd) {
  const std::string name = put("a.tbl", golden("thirty-columns.tbl"));
  auto file = platform::TextFile::open(disk, name, platform::TextFile::Mode::Input);
  ASSERT_TRUE(file);
  const std::string header = file->read_line().value_or("");
  fs::remove(name);
  EXPECT_EQ(read_after_header(model, header, *file), TableauRead::Read);
  EXPECT_EQ(written(model), golden("thirty-columns.tbl"));
}

}  // namespace
}  // namespace tabulon
