#include "report/Relatorio.h"

#include <array>
#include <string_view>

#include "cultivation/OpenedConditions.h"
#include "data/SafeSave.h"
#include "inference/VerdictTexts.h"
#include "kinetics/Modelos.h"
#include "language/Message.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

/// The conditions of an experiment, in the order in which a report lists them.
constexpr std::array kReported = {
    At::Cx0,   At::Cs0, At::Cp0, At::T,      At::Yxs,   At::YpsTyped, At::alpha, At::beta,
    At::muMax, At::Ks,  At::Kis, At::Kip,    At::CxAst, At::CpAst,    At::m,     At::n,
    At::u,     At::v,   At::C,   At::B,      At::B1,    At::B2,       At::G,     At::H1,
    At::ms,    At::Kd,  At::Kdp, At::CsAst1, At::CsAst2};

// Labels beside their values, three of them in a row. What was computed, Alfa as Yps/Yxs and
// parameters that an earlier search estimated, comes with all the digits of a double: the columns
// have room for them.
constexpr std::size_t kPairs = 3;
constexpr std::array<int, 2 * kPairs> kWidths = {33, 101, 33, 101, 33, 101};

class Report {
 public:
  explicit Report(const ReportContent& content) : content_(content) {}

  rich::Document Document() {
    AddHead();
    for (std::size_t i = 0; i < content_.records.size(); ++i) AddConditions(i);
    AddStart();
    AddBounds();
    AddResult();
    AddEnd();
    AddVerdicts();
    AddPictures();
    return std::move(document_);
  }

 private:
  std::string Text(TextId id) const {
    return std::string(velmora::Text(id, content_.style.language));
  }
  std::string Plain(double value) const { return PlainText(value, content_.style.separator); }
  std::string Long(double value) const {
    return Formatted(value, kTwoToThirteen, content_.style.separator);
  }
  void Add(std::string text, rich::Look look = rich::Look::Plain) {
    document_.emplace_back(rich::Paragraph{std::move(text), look});
  }

  int NumberAt(int place) const {
    return place == 0 ? 0 : content_.records.at(static_cast<std::size_t>(place) - 1).number;
  }

  static std::string LabelOf(const FitVariable& variable) {
    return std::string(ParameterAt(variable.position).label) + " ";
  }

  void AddHead() {
    Add(Text(TextId::ReportTitle), rich::Look::Title);
    if (content_.summary)
      for (auto& block : SummaryDocument(*content_.summary, content_.problem, content_.result,
                                         content_.deviations, content_.verdict, content_.style))
        document_.push_back(std::move(block));
    Add(Text(TextId::Version));
    Add(Text(TextId::BatchCultivation));
    Add(Text(TextId::NumberOfExperiments) + std::to_string(content_.records.size()));
    AddModel();
  }

  /// A file may name no model, or another one than its switches mean.
  void AddModel() {
    if (content_.records.empty()) return;
    const Model* const model =
        RecognisedModel(content_.records.front(), content_.problem.variables);
    if (model == nullptr) return;
    Add(Text(TextId::ChosenModel) + " " + std::string(model->name));
    Add(Equation(*model), rich::Look::Indented);
  }

  void AddConditions(std::size_t index) {
    const ConditionsRecord& record = content_.records[index];
    Add(Text(TextId::ConditionsOfExperiment) + std::to_string(record.number), rich::Look::Heading);
    const std::string& description = content_.problem.experiments.at(index).description;
    if (!description.empty()) Add(description, rich::Look::Together);
    rich::Table table{{kWidths.begin(), kWidths.end()}, {}};
    for (std::size_t i = 0; i < kReported.size(); ++i) {
      if (i % kPairs == 0) table.rows.emplace_back();
      table.rows.back().emplace_back(ParameterAt(kReported[i]).reported);
      table.rows.back().push_back(Plain(record.row[kReported[i]]));
    }
    table.rows.back().resize(table.widths.size());
    document_.emplace_back(std::move(table));
  }

  void AddStart() {
    Add(Text(TextId::InitialValues), rich::Look::Heading);
    for (const FitVariable& variable : content_.problem.variables)
      Add(LabelOf(variable) + Plain(variable.start), rich::Look::Together);
  }

  void AddBounds() {
    rich::Table table{{1, 1}, {}};
    for (const FitVariable& variable : content_.problem.variables)
      table.rows.push_back(
          {Text(TextId::UpperBoundOf) + LabelOf(variable) + Plain(variable.upper),
           Text(TextId::LowerBoundOf) + LabelOf(variable) + Plain(variable.lower)});
    document_.emplace_back(std::move(table));
  }

  void AddResult() {
    Add(Text(TextId::EstimatedVariables), rich::Look::Heading);
    const Deviations& deviations = content_.deviations;
    for (std::size_t j = 0; j < content_.problem.variables.size(); ++j) {
      std::string line = LabelOf(content_.problem.variables[j]) + Long(content_.result.best[j]);
      if (!deviations.fault) line += " +/- " + Long(deviations.values[j]);
      Add(std::move(line), rich::Look::Together);
    }
    if (deviations.fault) AddMissingDeviations(*deviations.fault);
    Add(Text(TextId::ReportedSum) + Plain(content_.result.score), rich::Look::Strong);
    if (std::string line = AgreementText(content_.result, content_.style.language); !line.empty())
      Add(std::move(line));
  }

  void AddMissingDeviations(const ArithmeticFault& fault) {
    const Language language = content_.style.language;
    const bool ofData = fault.term == FaultTerm::Deviations;
    const std::string why = ofData ? Text(TextId::DataDoNotDetermine)
                                   : FaultDescription(fault, NumberAt(fault.place), language);
    Add(Filled(TextId::NoDeviations, language, {why}), rich::Look::Together);
  }

  /// A search that did not converge says so, as its results do.
  void AddEnd() {
    if (content_.result.end == SearchEnd::Converged) return;
    std::string lines = EndText(content_.problem, content_.result, content_.style.language);
    lines.pop_back();
    Add(std::move(lines));
  }

  void AddVerdicts() {
    if (!content_.verdict) return;
    const FitVerdict& verdict = *content_.verdict;
    Add(Text(TextId::VerdictsHeading), rich::Look::Heading);
    for (auto& line : ParameterVerdictLines(verdict, content_.problem, content_.style))
      Add(std::move(line), rich::Look::Together);
    for (auto& line : RunVerdictLines(verdict, content_.problem, content_.style))
      Add(std::move(line));
  }

  void AddPictures() {
    for (const auto& [titleId, picture] : content_.pictures) {
      Add(Text(titleId), rich::Look::Heading);
      document_.emplace_back(picture);
    }
  }

  const ReportContent& content_;
  rich::Document document_;
};

}  // namespace

ReportContent ReportOf(const FitProblem& problem, const CultivationConditions& conditions,
                       const SearchResult& result, const Deviations& deviations,
                       const FitVerdict& verdict, TextStyle style) {
  ReportContent report{style, {}, problem, result, deviations, {}, verdict, {}};
  for (std::size_t i = 0; i < problem.experiments.size(); ++i)
    report.records.push_back(conditions.At(static_cast<int>(i) + 1));
  return report;
}

rich::Document ReportDocument(const ReportContent& content) {
  return Report(content).Document();
}

std::string Relatorio(const ReportContent& content) {
  return rich::Rtf(ReportDocument(content));
}

std::optional<FileFault> SaveReport(const ReportContent& content, const std::string& path) {
  return SafeSave(path, Relatorio(content));
}

}  // namespace velmora
