// velmora-cli chart: pictures of any kind and format, and why there is none.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/cli/CommandLine.h"

namespace velmora {
namespace {

/// Curves are drawn where there is a model; the size is 160 mm by 75 mm for each chart.
TEST(Chart, DrawsEveryKindInEveryFormat) {
  const TemporaryFolder folder;
  const auto drawn = [&](const std::string& files, const std::string& name) {
    const std::string path = folder / name;
    const Ran ran = RunCli("chart " + files + "-o " + path);
    EXPECT_EQ(ran.code, 0) << ran.err;
    EXPECT_TRUE(ran.out.starts_with(path + ": ")) << ran.out;
    return BytesOf(path);
  };
  const std::string points = drawn(kMolasses, "points.svg");
  EXPECT_NE(points.find("<svg"), std::string::npos);
  const std::string given = drawn(kMolasses + kConditions + "--as-given ", "given.svg");
  const std::string fitted = drawn(kMolasses + kConditions, "fitted.svg");
  EXPECT_GT(given.size(), points.size());
  EXPECT_NE(given, fitted) << "the conditions' own values are not the best ones";
  EXPECT_NE(drawn(kMolasses + kConditions + "--kind residuals ", "residuals.svg"), fitted);
  EXPECT_TRUE(drawn(kMolasses + kConditions + "--kind profile ", "p.PDF").starts_with("%PDF"));
  const std::string png =
      drawn(kMolasses + kConditions + "--as-given --kind parity --height 100 --dpi 254 ", "p.png");
  EXPECT_EQ(png.substr(16, 8), std::string("\0\0\x06\x40\0\0\x03\xE8", 8)) << "1600 by 1000";
  const std::string portuguese =
      drawn(kMolasses + kConditions + "--as-given --kind parity --language pt ", "pt.svg");
  EXPECT_NE(portuguese, drawn(kMolasses + kConditions + "--as-given --kind parity ", "en.svg"));
}

TEST(Chart, GoesToStandardOutputAndTellsWhatItWasMadeOf) {
  const std::string chart = "chart " + kBoth + "-o - ";
  const Ran svg = RunCli(chart + "--as-given --set Ks=30 --json");
  EXPECT_TRUE(svg.out.starts_with("<?xml")) << svg.err;
  EXPECT_NE(svg.out, RunCli(chart + "--as-given").out);
  const auto told = nlohmann::json::parse(svg.err);
  EXPECT_EQ(told.at("format"), "svg");
  EXPECT_EQ(told.at("made").at("files").size(), 2U);
  EXPECT_FALSE(told.at("made").contains("seed")) << "nothing was searched";
  const Ran other =
      RunCli(chart + "--format png --dpi 50 --model Moser --fit u=1:0.5:3 --iu 1234 --json");
  EXPECT_TRUE(other.out.starts_with("\x89PNG"));
  const auto made = nlohmann::json::parse(other.err).at("made");
  EXPECT_EQ(made.at("model"), "Moser");
  EXPECT_EQ(made.at("seed"), 1234);
}

TEST(Chart, RefusesBeforeItFits) {
  const TemporaryFolder folder;
  struct Row {
    std::string arguments;
    int code;
    const char* says;
  };
  const std::string path = folder / "x";
  for (const Row& row :
       {Row{kMolasses + "-o " + path + ".gif", 2, "choose a name that ends in .svg, .pdf or .png"},
        {kMolasses + "-o " + path + ".svg --kind parity", 2, "--kind parity needs a model"},
        {kMolasses + kConditions + "-o " + path + "/no.svg", 3, "x/no.svg"},
        {kMolasses + kConditions + "-o " + path + ".svg --kind profile --as-given", 1,
         "a profile is drawn around the best values"},
        {kMolasses + "-o " + path + ".svg --dpi 5000", 2, "--dpi"},
        {kMolasses + "-o " + path + ".svg --model Aiba", 2, "--model needs a model"},
        {kBoth + "-o " + path + ".svg --as-given --fit Ks=3:1:9", 2,
         "--fit excludes --as-given"}}) {
    const Ran ran = RunCli("chart " + row.arguments);
    EXPECT_EQ(ran.code, row.code) << row.arguments;
    EXPECT_NE(ran.err.find(row.says), std::string::npos) << ran.err;
  }
  EXPECT_EQ(folder.Entries(), 0);
}

}  // namespace
}  // namespace velmora
