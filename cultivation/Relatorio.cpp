#include "cultivation/Relatorio.h"

#include <array>
#include <string_view>

#include "app/Numbers.h"
#include "cultivation/RichText.h"
#include "data/SafeSave.h"
#include "kinetics/Modelos.h"

namespace velmora {
namespace {

/// The conditions of an experiment, in the order in which a report lists them.
struct ReportedCondition {
  std::string_view label;
  At position;
};
constexpr std::array<ReportedCondition, 29> kReported = {
    {{"Cx0: ", At::Cx0},       {"Cs0: ", At::Cs0},      {"Cp0: ", At::Cp0},
     {"T: ", At::T},           {"Yxs: ", At::Yxs},      {"Yps: ", At::YpsTyped},
     {"Alfa: ", At::alpha},    {"Beta: ", At::beta},    {"Mimax: ", At::muMax},
     {"Ks: ", At::Ks},         {"Kis: ", At::Kis},      {"Kp: ", At::Kip},
     {"CxAst: ", At::CxAst},   {"CpAst: ", At::CpAst},  {"m: ", At::m},
     {"n: ", At::n},           {"u: ", At::u},          {"v: ", At::v},
     {"C: ", At::C},           {"B: ", At::B},          {"B1: ", At::B1},
     {"B2: ", At::B2},         {"G: ", At::G},          {"H1: ", At::H1},
     {"ms: ", At::ms},         {"Kd: ", At::Kd},        {"Kdp: ", At::Kdp},
     {"CsAst1: ", At::CsAst1}, {"CsAst2: ", At::CsAst2}}};
constexpr int kColumns = 4;

constexpr std::string_view kHeading = "\\keepn\\sb240\\b\\fs24";

class Report {
 public:
  explicit Report(const ReportContent& content) : content_(content) {}

  std::string Text() {
    Add(506, "\\b\\fs32");
    Add(515);
    Add(507);
    body_ += rtf::Paragraph(Table(508) + std::to_string(content_.records.size()));
    AddModel();
    for (const ConditionsRecord& record : content_.records) AddConditions(record);
    AddPicture(0);
    AddStart();
    AddBounds();
    AddResult();
    AddPicture(1);
    body_ += rtf::Paragraph(Table(514) + Plain(content_.sumOfSquaredErrors), "\\b");
    AddPicture(2);
    return rtf::Document(body_);
  }

 private:
  std::string Table(int id) const {
    return std::string(velmora::Text(id, content_.style.language));
  }
  std::string Plain(double value) const { return PlainText(value, content_.style.separator); }
  std::string Long(double value) const {
    return Formatted(value, kTwoToThirteen, content_.style.separator);
  }
  void Add(int id, std::string_view formatting = {}) {
    body_ += rtf::Paragraph(Table(id), formatting);
  }

  static std::string LabelOf(const FitVariable& variable) {
    const int index = FittableIndex(variable.position);
    return index < 0 ? "" : std::string(kFittable[static_cast<std::size_t>(index)].label) + " ";
  }

  void AddModel() {
    constexpr int kChosenModel = 163;
    if (content_.records.empty()) return;
    const Model* const model = FindModel(content_.records.front().options.model);
    if (model == nullptr) return;
    body_ += rtf::Paragraph(Table(kChosenModel) + " " + std::string(model->name));
    body_ += rtf::Paragraph(Equation(*model), "\\li400");
  }

  void AddConditions(const ConditionsRecord& record) {
    body_ += rtf::Paragraph(Table(509) + std::to_string(record.number), kHeading);
    std::vector<std::string> cells;
    for (const auto& [label, position] : kReported)
      cells.push_back(std::string(label) + Plain(record.row[position]));
    body_ += rtf::Table(cells, kColumns);
  }

  void AddStart() {
    Add(510, kHeading);
    for (const FitVariable& variable : content_.variables)
      body_ += rtf::Paragraph(LabelOf(variable) + Plain(variable.start));
  }

  void AddBounds() {
    for (const FitVariable& variable : content_.variables) {
      body_ += rtf::Paragraph(Table(511) + LabelOf(variable) + Plain(variable.upper));
      body_ += rtf::Paragraph(Table(512) + LabelOf(variable) + Plain(variable.lower));
    }
  }

  void AddResult() {
    Add(513, kHeading);
    for (std::size_t j = 0; j < content_.variables.size(); ++j) {
      std::string line = LabelOf(content_.variables[j]) + Long(content_.best[j]);
      if (!content_.deviations.empty()) line += " +/- " + Long(content_.deviations[j]);
      body_ += rtf::Paragraph(line);
    }
  }

  void AddPicture(std::size_t index) {
    if (index >= content_.pictures.size()) return;
    const ReportPicture& picture = content_.pictures[index];
    body_ += rtf::Picture(picture.png, picture.width, picture.height);
  }

  const ReportContent& content_;
  std::string body_;
};

}  // namespace

std::string Relatorio(const ReportContent& content) {
  return Report(content).Text();
}

std::optional<FileFault> SaveReport(const ReportContent& content, const std::string& path) {
  return SafeSave(path, Relatorio(content));
}

}  // namespace velmora
