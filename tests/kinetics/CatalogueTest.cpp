#include <gtest/gtest.h>

#include <fstream>
#include <set>

#include "kinetics/Modelos.h"
#include "tests/support/Batches.h"

namespace velmora {
namespace {

std::vector<std::string_view> NamesOf(const KineticParameters& row,
                                      std::initializer_list<At> fitted = {}) {
  std::vector<std::string_view> names;
  for (const Model* model : ModelsOf(row, std::vector<At>(fitted))) names.push_back(model->name);
  return names;
}

TEST(Catalogue, TellsTheModelsOfARowByItsValuesAndFittedParameters) {
  using Names = std::vector<std::string_view>;
  KineticParameters row = test::BatchOf("Levenspiel");
  EXPECT_EQ(NamesOf(row), Names{"Levenspiel"});
  row[At::n] = 0;
  EXPECT_EQ(NamesOf(row), Names{"Levenspiel"}) << "Monod has no limit of 60";
  row[At::CpAst] = 1;
  EXPECT_EQ(NamesOf(row), (Names{"Monod", "Moser"})) << "the term stands at its neutral values";
  EXPECT_EQ(NamesOf(row, {At::n}), Names{"Levenspiel"}) << "and is no longer idle";
  EXPECT_EQ(NamesOf(row, {At::u}), Names{"Moser"});
}

TEST(Catalogue, GivesKsAndKipTheUnitOfTheirTerm) {
  const auto unit = [](At position, std::string_view model) {
    return UnitOf(position, *FindModel(model));
  };
  EXPECT_EQ(unit(At::Ks, "Monod"), "g/L");
  EXPECT_EQ(unit(At::Ks, "Contois-Hoppe-Lee"), "g/g");  // Ks Cx is a concentration of substrate
  EXPECT_EQ(unit(At::Kip, "Contois-Hoppe-Lee"), "g/L");
  EXPECT_EQ(unit(At::Kip, "Wu-Aiba"), "L/g");  // Kip Cp has no unit
  EXPECT_EQ(unit(At::u, "Moser"), "");
}

/// The model's line of the table in docs/models.md.
std::string DocumentLine(const Model& model) {
  std::string parameters, equation;
  for (const Parameter& parameter : kFittable)
    if (Uses(model, parameter.position))
      parameters += (parameters.empty() ? "" : ", ") + std::string(parameter.name);
  for (const char c : Equation(model)) equation += c == '*' ? std::string("\\*") : std::string{c};
  return "| " + std::string(model.name) + " | " + parameters + " | " + equation + " |";
}

TEST(Catalogue, StandsInTheDocumentsWithItsEquations) {
  std::ifstream table(VELMORA_SOURCE_FOLDER "/docs/models.md");
  std::set<std::string> lines;
  for (std::string line; std::getline(table, line);) lines.insert(line);
  for (const Model& model : kModels) EXPECT_TRUE(lines.contains(DocumentLine(model))) << model.name;
}

}  // namespace
}  // namespace velmora
