// Writes the manual pages and the completions of velmora-cli.
// Use: velmora-manual EN.json PT.json DATE OUT
// The JSON is what "velmora-cli --describe" prints in each language; the files are OUT.man.en,
// OUT.man.pt, OUT.bash, OUT.zsh and OUT.fish.

#include <cstdio>
#include <exception>
#include <fstream>
#include <stdexcept>

#include "packaging/Completions.h"
#include "packaging/ManualPage.h"

namespace velmora::packaging {
namespace {

void Write(const std::string& file, const std::string& text) {
  std::ofstream out(file);
  if (!(out << text << std::flush)) throw std::runtime_error(file + " cannot be written");
}

void WriteAll(const CommandTable& english, const CommandTable& portuguese, const std::string& date,
              const std::string& out) {
  // A page half in each language helps nobody: without texts in Portuguese it is the English one.
  const bool translated = portuguese.whole.about != english.whole.about;
  Write(out + ".man.en", ManualPage(english, kEnglishManual, date));
  Write(out + ".man.pt",
        ManualPage(portuguese, translated ? kPortugueseManual : kEnglishManual, date));
  Write(out + ".bash", BashCompletion(english));
  Write(out + ".zsh", ZshCompletion(english));
  Write(out + ".fish", FishCompletion(english));
}

}  // namespace
}  // namespace velmora::packaging

int main(int argc, char** argv) {
  using namespace velmora::packaging;
  if (argc != 5) {
    std::fputs("use: velmora-manual EN.json PT.json DATE OUT\n", stderr);
    return 2;
  }
  try {
    WriteAll(ReadCommandTable(argv[1]), ReadCommandTable(argv[2]), argv[3], argv[4]);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "velmora-manual: %s\n", error.what());
    return 3;
  }
}
