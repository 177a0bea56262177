#include "session/FormText.h"

#include <algorithm>
#include <charconv>

#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr char kExactMark = '\t';

/// The lines of a text, one after the other; empty ones behind the last.
class Lines {
 public:
  explicit Lines(std::string_view text) : rest_(text) {}

  std::string_view Next() {
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    const std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    return line;
  }
  int NextNumber() {
    const std::string_view line = Next();
    int number = 0;
    std::from_chars(line.data(), line.data() + line.size(), number);
    return number;
  }

 private:
  std::string_view rest_;
};

std::string LineOf(const Entry& entry) {
  std::string line = entry.text;
  if (entry.exact) line += kExactMark + PlainText(*entry.exact, '.');
  return line + "\n";
}

Entry EntryOf(std::string_view line) {
  const std::size_t mark = line.find(kExactMark);
  Entry entry(std::string(line.substr(0, mark)));
  if (mark != std::string_view::npos) entry.exact = ParseNumber(line.substr(mark + 1), '.');
  return entry;
}

std::string LineOf(int number) {
  return std::to_string(number) + "\n";
}

}  // namespace

std::string FormText(const FormDraft& draft) {
  const CultivationForm& form = draft.form;
  std::string text = LineOf(draft.place) + LineOf(draft.edited ? 1 : 0);
  for (const Entry& entry : form.boxes) text += LineOf(entry);
  for (const FitRow& row : form.fit)
    text += LineOf(row.ticked ? 1 : 0) + LineOf(row.lower) + LineOf(row.upper);
  for (const bool used : form.dataSet) text += LineOf(used ? 1 : 0);
  text += std::string(NameOf(form.method)) + "\n" + std::string(NameOf(form.production)) + "\n";
  return text + LineOf(static_cast<int>(form.yields)) + form.model + "\n" +
         LineOf(form.modelConfirmed ? 1 : 0);
}

FormDraft FormOfText(std::string_view text) {
  Lines lines(text);
  FormDraft draft;
  CultivationForm& form = draft.form;
  draft.place = lines.NextNumber();
  draft.edited = lines.NextNumber() == 1;
  for (Entry& entry : form.boxes) entry = EntryOf(lines.Next());
  for (FitRow& row : form.fit) {
    row.ticked = lines.NextNumber() == 1;
    row.lower = EntryOf(lines.Next());
    row.upper = EntryOf(lines.Next());
  }
  for (bool& used : form.dataSet) used = lines.NextNumber() == 1;
  form.method = MethodNamed(lines.Next());
  form.production = ProductionNamed(lines.Next());
  form.yields =
      static_cast<Yields>(std::clamp(lines.NextNumber(), 0, static_cast<int>(Yields::Global)));
  form.model = lines.Next();
  form.modelConfirmed = lines.NextNumber() == 1;
  return draft;
}

}  // namespace velmora
