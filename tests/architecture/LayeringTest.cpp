// Which folder may include which: the floors of the program, read off its #include lines.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {
namespace {

namespace fs = std::filesystem;

/// The floors from the ground up: a folder includes only itself and what stands before it.
constexpr auto kFloors = std::to_array<std::string_view>(
    {"platform", "kinetics", "language", "data", "estimation", "cultivation", "inference", "charts",
     "report", "session", "app/widgets", "app/charts", "app/settings", "app/experiments",
     "app/cultivation", "app/shell"});
constexpr std::string_view kCommandLine = "cli";  // stands on `session`, as app does
// These stand beside the floors and may include any of them.
constexpr auto kBeside =
    std::to_array<std::string_view>({"bench", "fuzz", "help", "packaging", "tests"});

bool IsOneOf(std::string_view folder, const auto& folders) {
  return std::find(folders.begin(), folders.end(), folder) != folders.end();
}

/// The folder of a path from the source folder: "data" of data/CsvTable.h, "app/shell" of
/// app/shell/main.cpp.
std::string_view FolderOf(std::string_view path) {
  const std::size_t outer = path.find('/');
  if (outer == path.npos) return "";
  if (path.substr(0, outer) != "app") return path.substr(0, outer);
  return path.substr(0, std::max(outer, path.rfind('/')));
}

bool IsKnown(std::string_view folder) {
  return IsOneOf(folder, kFloors) || IsOneOf(folder, kBeside) || folder == kCommandLine;
}

bool MayUseQt(std::string_view folder) {
  return folder.starts_with("app/") || folder == "help" || folder == "tests";
}

/// Whether sources of `folder` may include headers of the folder `other`.
bool StandsOn(std::string_view folder, std::string_view other) {
  if (folder == other) return IsKnown(folder);
  if (IsOneOf(folder, kBeside)) return IsKnown(other);
  if (folder == kCommandLine) return IsOneOf(other, kFloors) && !other.starts_with("app/");
  const auto own = std::find(kFloors.begin(), kFloors.end(), folder);
  return own != kFloors.end() && std::find(kFloors.begin(), own, other) != own;
}

/// Whether a header is the operating system's, not C++'s.
bool IsOfTheSystem(std::string_view header) {
  constexpr auto kNames = std::to_array<std::string_view>(
      {"<csignal>", "<dirent.h>", "<fcntl.h>", "<poll.h>", "<pthread.h>", "<pwd.h>", "<signal.h>",
       "<spawn.h>", "<termios.h>", "<unistd.h>"});
  return header.starts_with("<sys/") || IsOneOf(header, kNames);
}

/// Whether the file at `path`, from the source folder, may include `header`, which stands with its
/// quotes or angle brackets.
bool MayInclude(std::string_view path, std::string_view header) {
  const std::string_view folder = FolderOf(path);
  if (header.starts_with("<Q")) return MayUseQt(folder);
  if (IsOfTheSystem(header)) return folder == "platform" || folder == "bench" || folder == "tests";
  if (header.starts_with('<')) return IsKnown(folder);
  return StandsOn(folder, FolderOf(header.substr(1)));
}

struct IncludeLine {
  std::string path;    // of the including file, from the source folder
  std::string header;  // as it stands, with quotes or angle brackets
};

std::vector<IncludeLine> IncludesOf(const fs::path& file, const std::string& path) {
  static const std::regex kInclude(R"re(^\s*#\s*include\s*("[^"]*"|<[^>]*>))re");
  std::vector<IncludeLine> includes;
  std::ifstream in(file);
  std::smatch match;
  for (std::string line; std::getline(in, line);)
    if (std::regex_search(line, match, kInclude)) includes.push_back({path, match[1]});
  return includes;
}

/// The includes of every source of the tree, but for what is built and hidden.
std::vector<IncludeLine> IncludesOfTheTree(const fs::path& root) {
  std::vector<IncludeLine> all;
  for (auto at = fs::recursive_directory_iterator(root); at != fs::end(at); ++at) {
    const std::string name = at->path().filename().string();
    if (at->is_directory() && (name.starts_with('.') || at->path() == root / "build"))
      at.disable_recursion_pending();
    if (!name.ends_with(".h") && !name.ends_with(".cpp")) continue;
    const auto includes = IncludesOf(at->path(), at->path().lexically_relative(root).string());
    all.insert(all.end(), includes.begin(), includes.end());
  }
  return all;
}

TEST(Layering, LetsAFolderIncludeOnlyWhatStandsBelowIt) {
  struct Case {
    const char* path;
    const char* header;
    bool allowed;
  };
  for (const auto& [path, header, allowed] : std::to_array<Case>({
           {"language/Texts.cpp", "\"data/CsvTable.h\"", false},
           {"cultivation/FitSetUp.h", "\"inference/Profile.h\"", false},
           {"data/CsvTable.cpp", "\"CsvTable.h\"", false},
           {"app/charts/frmZoom.h", "\"app/experiments/HeaderPanel.h\"", false},
           {"app/shell/main.cpp", "\"cli/Console.h\"", false},
           {"cli/main.cpp", "\"app/widgets/Dialogs.h\"", false},
           {"help/BuildGuide.cpp", "<QtGui/QTextDocument>", true},
           {"charts/ChartDrawing.cpp", "<QPainter>", false},
           {"bench/RateLawBench.cpp", "<QString>", false},
           {"data/SafeSave.cpp", "<unistd.h>", false},
           {"platform/System.cpp", "<sys/stat.h>", true},
           {"solvers/Newton.cpp", "<vector>", false},
           {"app/extras/Toy.cpp", "\"kinetics/Modelos.h\"", false},
           {"tests/data/FilesTest.cpp", "\"solvers/Newton.h\"", false},
           {"Toy.cpp", "<vector>", false},
       }))
    EXPECT_EQ(MayInclude(path, header), allowed) << path << " includes " << header;
}

TEST(Layering, HoldsInEverySourceOfTheTree) {
  const auto includes = IncludesOfTheTree(VELMORA_SOURCE_FOLDER);
  for (const std::string_view folder : {"kinetics", "session", "app/shell", "cli", "tests"})
    EXPECT_TRUE(std::any_of(includes.begin(), includes.end(),
                            [=](const IncludeLine& at) { return FolderOf(at.path) == folder; }))
        << folder << " was not read";
  for (const auto& [path, header] : includes)
    EXPECT_TRUE(MayInclude(path, header)) << path << " includes " << header;
}

}  // namespace
}  // namespace velmora
