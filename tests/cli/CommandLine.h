// What the tests of velmora-cli share: the molasses example, and files made from it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/cli/RunProgram.h"

namespace velmora {

inline const std::string kExamples = VELMORA_EXAMPLES "/";
inline const std::string kMolasses = kExamples + "molasses.abr ";
inline const std::string kConditions = kExamples + "molasses-conditions.abr ";
inline const std::string kBoth = kMolasses + kConditions;

/// A folder for a test's files.
class CommandLine : public testing::Test {
 protected:
  /// A conditions file for the molasses example.
  std::string Conditions(const std::string& name, const std::string& options) const {
    const Ran ran = RunCli("conditions " + kMolasses + options +
                           " --set Yxs=0.27232 --set Yps=0.42448 -o " + (folder_ / name));
    EXPECT_EQ(ran.code, 0) << ran.err;
    return folder_ / name;
  }

  /// The experiments of a table and conditions for them, of Monod with `more` set: two arguments.
  std::string FitOf(const std::string& table, const std::string& more) const {
    const std::string experiments = folder_ / "table.abr", conditions = folder_ / "fit.abr";
    WriteFile(folder_ / "table.csv", table);
    EXPECT_EQ(RunCli("import " + (folder_ / "table.csv") + " -o " + experiments).code, 0);
    EXPECT_EQ(RunCli("conditions " + experiments +
                     " --model Monod --product PAC --yields global --set Yxs=0.3 --set Yps=0.4 " +
                     "--fit MiMax=0.2:0.05:1 --fit Ks=10:1:50 " + more + " -o " + conditions)
                  .code,
              0);
    return experiments + " " + conditions;
  }

  TemporaryFolder folder_;
};

/// The program must end with `code`, print nothing and say one line that holds `part`.
inline void ExpectRefusal(const std::string& arguments, int code, const std::string& part) {
  const Ran ran = RunCli(arguments);
  EXPECT_EQ(ran.code, code) << arguments;
  EXPECT_NE(ran.err.find(part), std::string::npos) << arguments << ": " << ran.err;
  EXPECT_EQ(std::count(ran.err.begin(), ran.err.end(), '\n'), 1) << arguments << ": " << ran.err;
  EXPECT_EQ(ran.out, "") << arguments;
}

}  // namespace velmora
