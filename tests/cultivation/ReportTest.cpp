#include <gtest/gtest.h>

#include <algorithm>

#include "cultivation/Relatorio.h"

namespace velmora {
namespace {

/// What a reader of rich text sees: control words and groups dropped, letters decoded to UTF-8.
std::string Read(const std::string& rtf) {
  std::string text;
  for (std::size_t i = 0; i < rtf.size(); ++i) {
    const char c = rtf[i];
    if (c == '{' || c == '}' || c == '\r' || c == '\n') continue;
    if (c != '\\') {
      text += c;
      continue;
    }
    const char next = rtf[++i];
    if (next == '\\' || next == '{' || next == '}') {
      text += next;
    } else if (next == '\'') {  // Latin letters: their code is that of Unicode
      const int code = std::stoi(rtf.substr(i + 1, 2), nullptr, 16);
      text += {static_cast<char>(0xC0 | code >> 6), static_cast<char>(0x80 | (code & 0x3F))};
      i += 2;
    } else {
      std::size_t end = i;
      while (std::isalnum(static_cast<unsigned char>(rtf[end])) || rtf[end] == '-') ++end;
      const std::string word = rtf.substr(i, end - i);
      if (word.starts_with("u9")) {
        const int code = std::stoi(word.substr(1));
        text += {static_cast<char>(0xC0 | code >> 6), static_cast<char>(0x80 | (code & 0x3F))};
        ++end;  // the letter for readers that know no Unicode
      }
      if (word == "par" || word == "cell") text += '\n';
      i = rtf[end] == ' ' ? end : end - 1;
    }
  }
  return text;
}

ReportContent Molasses() {
  ReportContent report;
  ConditionsRecord record;
  record.saved = true;
  record.number = 7;
  record.row[At::Cx0] = 1.25;
  record.row[At::YpsTyped] = 0.42448;
  record.row[At::Yps] = 1;
  record.options.model = "Aiba";
  report.records = {record};
  report.variables = {{At::muMax, 0.05, 0.5, 0.2}, {At::Ks, 1, 40, 10}};
  report.best = {0.179, 11};
  report.deviations = {0.0087, 3.25};
  report.sumOfSquaredErrors = 0.003;
  return report;
}

TEST(Report, TellsEverythingInItsOrder) {
  const std::string rtf = Relatorio(Molasses());
  EXPECT_TRUE(rtf.starts_with("{\\rtf1\\ansi\\ansicpg1252"));
  EXPECT_TRUE(std::all_of(rtf.begin(), rtf.end(), [](char c) { return c > 0; })) << "7-bit";
  EXPECT_EQ(std::count(rtf.begin(), rtf.end(), '{'), std::count(rtf.begin(), rtf.end(), '}'));
  const std::string text = Read(rtf);
  std::size_t at = 0;
  for (const char* line : {"Report of estimated kinetic parameters\n",
                           "Version 1.0\n",
                           "Type of cultivation: Batch\n",
                           "Number of experiments added: 1\n",
                           "Chosen model: Aiba\n",
                           "·exp(",
                           "Kip·Cp)\n",
                           "Conditions of the experiment: 7\n",
                           "Cx0: 1.25\n",
                           "Yps: 0.42448\n",
                           "Mimax: 0\n",
                           "CsAst1: 0\n",
                           "CsAst2: 0\n",
                           "Initial values of estimated variables: \n",
                           "µmáx = 0.2\n",
                           "Ks = 10\n",
                           "Upper bound of µmáx = 0.5\n",
                           "Lower bound of µmáx = 0.05\n",
                           "Upper bound of Ks = 40\n",
                           "Estimated variables: \n",
                           "µmáx = 0.179 +/- 0.0087\n",
                           "Ks = 11.00 +/- 3.25\n",
                           "Sum of squared errors: 0.003\n"}) {
    const std::size_t found = text.find(line, at);
    ASSERT_NE(found, std::string::npos) << line << " in " << text.substr(at);
    at = found;
  }
}

TEST(Report, SpeaksPortugueseAndOmitsDeviationsThatThereAreNot) {
  ReportContent report = Molasses();
  report.style = {Language::Portuguese, ','};
  report.deviations.clear();
  const std::string text = Read(Relatorio(report));
  EXPECT_NE(text.find("Relatório do ajuste de parâmetros cinéticos\n"), std::string::npos);
  EXPECT_NE(text.find("Ks = 11,00\n"), std::string::npos);
  EXPECT_EQ(text.find("+/-"), std::string::npos);
}

TEST(Report, HoldsEachPictureAtItsPlace) {
  ReportContent report = Molasses();
  report.pictures = {
      {std::string("\x89PNG\x00\xff", 6), 300, 200}, {"second", 300, 200}, {"third", 3, 2}};
  const std::string rtf = Relatorio(report);
  const std::size_t first = rtf.find("89504e4700ff");
  const std::size_t second = rtf.find("7365636f6e64"), third = rtf.find("7468697264");
  EXPECT_LT(rtf.find("CsAst2"), first);
  EXPECT_LT(rtf.find("+/-"), second);
  EXPECT_LT(rtf.find("Sum of squared errors: "), third);
  EXPECT_NE(third, std::string::npos);
}

}  // namespace
}  // namespace velmora
