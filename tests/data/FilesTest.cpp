// The experiment file in both directions, its letters, and saving.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <iconv.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <csignal>
#include <random>
#include <regex>

#include "data/ExperimentFile.h"
#include "data/FileBytes.h"
#include "data/SafeSave.h"
#include "data/Windows1252.h"
#include "tests/data/FileTesting.h"
#include "tests/support/Forms.h"

namespace velmora {
namespace {

// Two experiments as the file holds them, written out by hand: E2, E7 and 80 are â, ç and €.
const std::string kTwo =
    "Ajuste de par\xE2metros\r\nDados de entrada\r\n$2\r\n"
    "#1\r\nGlucose 100 g/L \x80\r\n 2 \r\n 24.5 \r\nCircVazio\r\n 3 \r\n 6 \r\nFalse\r\n"
    "|0|100|0.5|0|\r\n|24.5|0.25|-1E-05|2E+15|\r\n"
    "#-7\r\nFermenta\xE7\x61o\r\n 0 \r\n-1 \r\nTriang4\r\n 1 \r\n 1 \r\nTrue\r\n";

ExperimentLists TwoExperiments() {
  ExperimentLists lists;
  lists.Append(
      {1, "Glucose 100 g/L €", {0, 24.5}, {0.5, -1e-5}, {100, 0.25}, {0, 2e15}, 24.5, true},
      {"CircVazio", 6, 3, false});
  lists.Append({-7, "Fermentaçao", {}, {}, {}, {}, -1, true}, {"Triang4", 1, 1, true});
  return lists;
}

void ExpectSame(const ExperimentLists& actual, const ExperimentLists& expected) {
  ASSERT_EQ(actual.Count(), expected.Count());
  for (int place = 1; place <= expected.Count(); ++place) {
    EXPECT_EQ(actual.At(place), expected.At(place));
    EXPECT_EQ(actual.Display(place), expected.Display(place));
  }
}

TEST(ExperimentFile, IsWrittenByteForByte) {
  const TemporaryFolder folder;
  ASSERT_FALSE(WriteExperiments(TwoExperiments(), folder / "two.abr"));
  EXPECT_EQ(BytesOf(folder / "two.abr"), kTwo);
}

TEST(ExperimentFile, IsReadWithAnyLineEndAndAppended) {
  const TemporaryFolder folder;
  for (const char* lineEnd : {"\r\n", "\n", "\r"}) {
    const std::string bytes = std::regex_replace(kTwo, std::regex("\r\n"), lineEnd);
    ASSERT_FALSE(SafeSave(folder / "two.abr", bytes + "what follows is ignored"));
    ExperimentLists lists = test::Lists({5});
    const ExperimentsRead read = ReadExperiments(folder / "two.abr", lists);
    EXPECT_TRUE(!read.fault && read.appended == 2);
    ASSERT_EQ(lists.At(1).number, 5);
    lists.Delete(1);
    ExpectSame(lists, TwoExperiments());
  }
}

TEST(ExperimentFile, IsUtf8BehindAByteOrderMark) {
  ExperimentLists lists;
  ReadExperimentBytes("\xEF\xBB\xBF" + ExperimentText(TwoExperiments()), "", lists);
  ExpectSame(lists, TwoExperiments());
}

/// Any bytes, but for those that end a field or are passed over before it.
std::string RandomDescription(std::mt19937_64& random) {
  std::string bytes;
  for (std::uint64_t length = random() % 40; bytes.size() < length;) {
    const auto byte = static_cast<char>(random());
    const bool leadingBlank = bytes.empty() && byte == ' ';
    if (!leadingBlank && byte != ',' && byte != '\r' && byte != '\n') bytes += byte;
  }
  return FromWindows1252(bytes);
}

TEST(ExperimentFile, GivesRandomListsBackUnchanged) {
  std::mt19937_64 random(20261);
  for (int round = 0; round < 1000; ++round) {
    ExperimentLists lists, back;
    for (std::uint64_t count = random() % 5; count > 0; --count) {
      Experiment e;
      e.number = static_cast<std::int16_t>(random());
      const auto points = random() % 20;
      e.description = RandomDescription(random);
      e.finalTime = RandomValue(random);
      e.verified = true;
      for (auto* values : {&e.Cx, &e.Cs, &e.Cp, &e.time})
        for (std::size_t k = 0; k < points; ++k) values->push_back(RandomValue(random));
      lists.Append(e, {std::string(kMarkers[random() % 8]), static_cast<std::int32_t>(random()),
                       static_cast<std::int16_t>(random()), random() % 2 == 0});
    }
    const Encoded file = ToWindows1252(ExperimentText(lists));
    ASSERT_FALSE(ReadExperimentBytes(file.bytes, "", back).fault);
    ExpectSame(back, lists);
  }
}

TEST(ExperimentFile, RefusesATextThatItCannotHoldAndKeepsTheOldFile) {
  const TemporaryFolder folder;
  const std::string path = folder / "old.abr";
  ASSERT_FALSE(SafeSave(path, "old"));
  const auto faultOf = [&path](const std::string& description) {
    ExperimentLists lists = TwoExperiments();
    lists.Append({3, description, {}, {}, {}, {}, 0, false}, {});
    return WriteExperiments(lists, path);
  };
  const auto fault = [&path](FileReason reason, const std::string& detail) {
    return FileFault{reason, path, 0, FileField::Description, 3, detail};
  };
  EXPECT_EQ(faultOf("rate α"), fault(FileReason::BadLetter, "α"));
  EXPECT_EQ(faultOf("cut \xC3"), fault(FileReason::BadLetter, "0xC3"));
  EXPECT_EQ(faultOf("a\nb"), fault(FileReason::LineBreakInText, "a\nb"));
  EXPECT_EQ(faultOf("a\rb"), fault(FileReason::LineBreakInText, "a\rb"));
  EXPECT_EQ(BytesOf(path), "old");
}

TEST(Windows1252, AgreesWithTheSystemOnEveryByte) {
  const iconv_t system = iconv_open("UTF-8", "WINDOWS-1252");
  ASSERT_NE(system, reinterpret_cast<iconv_t>(-1));
  for (int number = 0; number < 256; ++number) {
    auto byte = static_cast<char>(number);
    char letter[8] = {};
    char *from = &byte, *to = letter;
    std::size_t fromLeft = 1, toLeft = sizeof letter;
    // What has no letter is the control character of its number: C2 81 is U+0081.
    std::string expected = {'\xC2', byte};
    if (iconv(system, &from, &fromLeft, &to, &toLeft) == 0) expected.assign(letter, to);
    ASSERT_EQ(FromWindows1252({&byte, 1}), expected) << number;
    ASSERT_EQ(ToWindows1252(expected).bytes, std::string(1, byte)) << number;
  }
  iconv_close(system);
}

TEST(Windows1252, RefusesWhatIsNoValidUtf8) {
  for (const char* text : {"\x80", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                           "\xE2\x82", "\xE2\x28\xA1", "\xFF", "\xC3"})
    EXPECT_EQ(LetterLength(text), 0u) << text;
  for (const std::string letter : {"a", "ç", "€", "\U0001F600", "\U0010FFFF"})
    EXPECT_EQ(LetterLength(letter + "b"), letter.size()) << letter;
}

TEST(SafeSave, KeepsPermissionsAndFollowsLinks) {
  const TemporaryFolder folder;
  const std::string name(255, 'n');  // the longest name that a file can have
  ASSERT_FALSE(SafeSave(folder / name, "old"));
  chmod((folder / name).c_str(), 0640);
  std::filesystem::create_symlink(name, folder / "link");
  std::filesystem::create_symlink("new", folder / "dangling");
  EXPECT_FALSE(SafeSave(folder / "link", "new"));
  const mode_t mask = umask(027);
  EXPECT_FALSE(SafeSave(folder / "dangling", "new"));
  umask(mask);
  for (const std::string& file : {folder / name, folder / "new"}) {
    EXPECT_EQ(BytesOf(file), "new");
    EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms(0640));
  }
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
  EXPECT_EQ(folder.Entries(), 4);
}

// What a killed save left is removed by the next one, but not what another save still holds.
TEST(SafeSave, RemovesWhatAKilledSaveLeft) {
  const TemporaryFolder folder;
  for (const char* name : {".velmora-left", ".velmora-held", ".velmora-Other.txt", "velmora-mine"})
    std::ofstream(folder / name) << "x";
  const int held = open((folder / ".velmora-held").c_str(), O_RDONLY);
  ASSERT_EQ(flock(held, LOCK_EX), 0);
  EXPECT_FALSE(SafeSave(folder / "file", "new"));
  EXPECT_EQ(BytesOf(folder / ".velmora-left"), "");
  EXPECT_EQ(folder.Entries(), 4);
  close(held);
}

TEST(SafeSave, SaysBeforehandWhatItWouldChange) {
  const TemporaryFolder folder;
  ASSERT_FALSE(SafeSave(folder / "file", "old"));
  EXPECT_FALSE(ChangesOfSaving(folder / "file").otherNames);
  std::filesystem::create_hard_link(folder / "file", folder / "other");
  EXPECT_TRUE(ChangesOfSaving(folder / "file").otherNames);
  EXPECT_EQ(ChangesOfSaving("/etc/passwd").owner, geteuid() != 0);
  // An access list as Linux packs it: version 2; owner, user 1, group, mask, others (acl(5)).
  EXPECT_FALSE(ChangesOfSaving(folder / "file").accessList);
  const std::uint32_t none = ~0u,
                      list[] = {2,    6u << 16 | 1,  none, 4u << 16 | 2,  1,   4u << 16 | 4,
                                none, 4u << 16 | 16, none, 4u << 16 | 32, none};
  const bool kept =
      setxattr((folder / "file").c_str(), "system.posix_acl_access", list, sizeof list, 0) == 0;
  EXPECT_EQ(ChangesOfSaving(folder / "file").accessList, kept);
  if (geteuid() != 0) return;
  ASSERT_EQ(chown((folder / "file").c_str(), 1234, 2345), 0);
  EXPECT_FALSE(SafeSave(folder / "file", "new"));
  struct stat status {};
  stat((folder / "file").c_str(), &status);
  EXPECT_EQ(std::pair(status.st_uid, status.st_gid), std::pair(1234u, 2345u));
}

TEST(FileBytes, AreNotReadBeyondTheLimit) {
  const TemporaryFolder folder;
  ASSERT_FALSE(SafeSave(folder / "file", "12345"));
  EXPECT_EQ(ReadWholeFile(folder / "file", 5).bytes, "12345");
  const FileBytes read = ReadWholeFile(folder / "file", 4);
  EXPECT_EQ(read.fault.value().reason, FileReason::TooLarge);
  EXPECT_EQ(read.bytes, "");
}

TEST(SafeSave, LeavesTheOldFileAloneOnAFullDisk) {
  const TemporaryFolder folder;
  ASSERT_FALSE(SafeSave(folder / "old", "old"));
  rlimit usual{};
  getrlimit(RLIMIT_FSIZE, &usual);
  const rlimit tight{100'000, usual.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &tight);
  const auto fault = SafeSave(folder / "old", std::string(1'000'000, 'x'));
  setrlimit(RLIMIT_FSIZE, &usual);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(fault.value().reason, FileReason::CannotWrite);
  EXPECT_EQ(BytesOf(folder / "old"), "old");
  EXPECT_EQ(folder.Entries(), 1);
}

TEST(SafeSave, AndReadingRefuseWhatIsNoFile) {
  const TemporaryFolder folder;
  const std::string pipe = folder / "pipe";
  mkfifo(pipe.c_str(), 0600);
  ExperimentLists lists;
  alarm(10);  // waiting for the pipe would kill the test
  for (const std::string& path : {pipe, folder / ""}) {
    EXPECT_EQ(SafeSave(path, "x").value().reason, FileReason::NotARegularFile) << path;
    EXPECT_EQ(ReadExperiments(path, lists).fault.value().reason, FileReason::NotARegularFile);
  }
  alarm(0);
  // Only read: a save that did not refuse would replace the device.
  EXPECT_EQ(ReadExperiments("/dev/null", lists).fault.value().reason, FileReason::NotARegularFile);
  EXPECT_EQ(SafeSave(folder / "no/file", "x").value().reason, FileReason::CannotWrite);
  EXPECT_EQ(ReadExperiments(folder / "none", lists).fault.value().reason, FileReason::CannotOpen);
  EXPECT_EQ(folder.Entries(), 1);
}

}  // namespace
}  // namespace velmora
