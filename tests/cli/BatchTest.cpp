// Many commands from a list.
#include <nlohmann/json.hpp>
#include <thread>

#include "tests/cli/CommandLine.h"

namespace velmora {
namespace {

using nlohmann::json;

class Batch : public CommandLine {
 protected:
  Batch() {
    const std::string files = R"("experiments":")" + kExamples + R"(molasses.abr","conditions":")" +
                              kExamples + R"(molasses-conditions.abr")";
    const std::string lines = R"({"id":"one","command":"score",)" + files + R"(,"set":["Ks=12"]})" +
                              "\n\nno JSON\n" + R"({"command":"fit",)" + files +
                              R"(,"method":"ED","iu":3}
)" + R"({"command":"fit",)" + files +
                              R"(,"iu":2000})";
    WriteFile(list_, lines);
  }
  Ran RunBatch(const std::string& more) const { return RunCli("batch " + list_ + " " + more); }

  const std::string list_ = folder_ / "list.jsonl";
  const std::string file_ = folder_ / "results.jsonl";
};

TEST_F(Batch, GivesALineForEachAndGoesOnAfterAFault) {
  const Ran ran = RunBatch("");
  EXPECT_EQ(ran.code, 1);
  std::istringstream lines(ran.out);
  std::string told;
  for (std::string line; std::getline(lines, line);) {
    const json result = json::parse(line);
    told += result.at("line").dump() + ":" + result.at("code").dump() + " ";
  }
  EXPECT_EQ(told, "1:0 3:2 4:1 5:0 ");
  EXPECT_NE(ran.out.find(R"("id":"one")"), std::string::npos);
  EXPECT_NE(ran.out.find("--iu: One of the parameters is out of bounds."), std::string::npos);
}

TEST_F(Batch, GivesInPartsWhatOneRunGives) {
  const std::string whole = RunBatch("").out;
  EXPECT_EQ(RunBatch("--shard 1/3").out + RunBatch("--shard 2/3").out + RunBatch("--shard 3/3").out,
            whole);
  for (const char* const wrong : {"0/3", "4/3", "3", "a/b", "1/0"})
    EXPECT_EQ(RunBatch(std::string("--shard ") + wrong).code, 2) << wrong;
}

TEST_F(Batch, PassesOverWhatIsDone) {
  const std::string whole = RunBatch("").out;
  // As a kill leaves it: a line cut short, and one that a new run would not write so.
  const std::size_t first = whole.find('\n') + 1;
  const std::string mark = std::string(whole).replace(first - 2, 1, " }");
  WriteFile(file_, mark.substr(0, first + 51));
  EXPECT_EQ(RunBatch("-o " + file_).code, 1);
  EXPECT_EQ(BytesOf(file_), mark);
  EXPECT_EQ(RunBatch("--shard 2/2 -o " + file_).code, 1) << "results of another list";
  EXPECT_EQ(BytesOf(file_), mark);
  EXPECT_EQ(RunBatch("-o " + list_).code, 2);
}

TEST_F(Batch, LeavesAStoppedCommandToTheNextRun) {
  WriteFile(list_, R"({"command":"fit","experiments":")" + kExamples +
                       R"(molasses.abr","conditions":")" + kExamples +
                       R"(molasses-conditions.abr","method":"ED","npop":120000})");
  Program program({"batch", list_, "-o", file_});
  while (!program.Hears(SIGTERM)) std::this_thread::yield();
  program.Send(SIGTERM);
  EXPECT_EQ(program.Wait().code, 143);
  EXPECT_EQ(BytesOf(file_), "");
}

}  // namespace
}  // namespace velmora
