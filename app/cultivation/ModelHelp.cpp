#include "app/cultivation/ModelHelp.h"

#include <QRegularExpression>
#include <QStringList>
#include <array>

#include "app/widgets/Idiomas.h"

namespace velmora {
namespace {

// In the order of their terms.
constexpr std::array kSubstrateTerms = {TextId::TermMonod, TextId::TermContois, TextId::TermMoser,
                                        TextId::TermAndrews, TextId::TermWu};
constexpr std::array kProductTerms = {TextId::TermHoppe, TextId::TermAiba, TextId::TermLevenspiel};

// In the order of kFittable.
constexpr std::array kMeanings = {TextId::MeaningMuMax, TextId::MeaningKs,    TextId::MeaningKis,
                                  TextId::MeaningKip,   TextId::MeaningCpAst, TextId::MeaningCxAst,
                                  TextId::MeaningN,     TextId::MeaningM,     TextId::MeaningU,
                                  TextId::MeaningV};
static_assert(kMeanings.size() == kFittable.size());

/// The places of `sign` outside parentheses.
QStringList SplitOutside(const QString& text, QChar sign) {
  QStringList parts{QString()};
  int depth = 0;
  for (const QChar c : text) {
    if (c == u'(') ++depth;
    if (c == u')') --depth;
    if (c == sign && depth == 0)
      parts << QString();
    else
      parts.back() += c;
  }
  return parts;
}

/// Indices and powers set lower and higher.
QString Typeset(QString term) {
  static const QRegularExpression kPower(QStringLiteral("\\^(\\w)"));
  static const QRegularExpression kIndex(QStringLiteral("([CKµ])([a-z]+)"));
  term.replace(kPower, QStringLiteral("<sup>\\1</sup>"));
  return term.replace(kIndex, QStringLiteral("\\1<sub>\\2</sub>"));
}

/// A cell of a table, in which a quotient stands as a fraction.
QString FactorCell(const QString& factor) {
  QStringList parts = SplitOutside(factor, u'/');
  if (parts.size() != 2)
    return QStringLiteral("<td style='vertical-align: middle'>%1</td>").arg(Typeset(factor));
  if (parts[1].startsWith(u'(')) parts[1] = parts[1].sliced(1).chopped(1);
  return QStringLiteral(
             "<td style='vertical-align: middle'><table cellspacing='0' cellpadding='1'>"
             "<tr><td align='center' style='border-bottom: 1px solid'>%1</td></tr>"
             "<tr><td align='center'>%2</td></tr></table></td>")
      .arg(Typeset(parts[0]), Typeset(parts[1]));
}

}  // namespace

QString DrawnModelHelp(const Model& model, Language language) {
  QString cells;
  for (const QString& factor : SplitOutside(QString::fromStdString(Equation(model)), u'·'))
    cells += FactorCell(factor);
  QStringList lines = ModelHelp(model, language).split(u'\n');
  lines[0] = QStringLiteral("<table cellpadding='2'><tr>%1</tr></table>").arg(cells);
  for (auto line = lines.begin() + 1; line != lines.end(); ++line)
    *line = QStringLiteral("<p>%1</p>").arg(line->toHtmlEscaped());
  return lines.join(QString());
}

QString ModelHelp(const Model& model, Language language) {
  QString help = QString::fromStdString(Equation(model));
  const auto add = [&](TextId text) { help += u'\n' + Caption(text, language); };
  add(kSubstrateTerms[static_cast<std::size_t>(model.substrate)]);
  if (model.product != ProductTerm::None)
    add(kProductTerms[static_cast<std::size_t>(model.product) - 1]);
  if (model.cell == CellTerm::Lee) add(TextId::TermLee);
  return help;
}

QString ParameterHelp(At position, Language language) {
  return Caption(kMeanings[static_cast<std::size_t>(FittableIndex(position))], language);
}

}  // namespace velmora
