#include "data/Workbook.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <pugixml.hpp>

#include "data/Archive.h"
#include "data/SheetStyles.h"
#include "data/SheetXml.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr unsigned kParts = pugi::parse_minimal | pugi::parse_escapes | pugi::parse_cdata |
                            pugi::parse_embed_pcdata | pugi::parse_ws_pcdata_single;
constexpr std::string_view kBlanks = " \t\r\n";

[[noreturn]] void FailDamaged() {
  throw TableFault{TextId::WorkbookDamaged, {}};
}

std::string Trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return std::string(text.substr(0, text.find_last_not_of(kBlanks) + 1));
}

/// What a part of the workbook says of others.
struct Relation {
  std::string id;
  std::string type;
  std::string target;  // from the archive's root
};

class Workbook {
 public:
  Workbook(std::string_view bytes, std::size_t limit);

  SheetRead Read(const std::optional<std::string>& name);

 private:
  bool Load(const std::string& part, pugi::xml_document& document);
  std::vector<Relation> RelationsOf(const std::string& part);
  /// The part that holds a sheet; nothing where it holds no cells, as a chart's.
  const Relation* PartOf(pugi::xml_node sheet) const;
  void LoadSharedTexts(const std::string& part);
  std::vector<TableRow> RowsOf(const std::string& part);
  TableRow RowOf(pugi::xml_node row, int line) const;
  void PutCell(pugi::xml_node cell, TableRow& row) const;
  std::string SharedText(std::string_view index) const;
  bool IsDate(pugi::xml_node cell) const;

  Archive archive_;
  std::string part_;  // that lists the sheets
  std::vector<Relation> relations_;
  std::vector<std::string> texts_;  // that cells share
  std::vector<bool> dates_;         // of the cells' styles
};

/// "xl/worksheets/sheet1.xml" of "worksheets/sheet1.xml" in "xl/workbook.xml".
std::string TargetFrom(const std::string& part, std::string_view target) {
  if (target.starts_with('/')) return std::string(target.substr(1));
  return part.substr(0, part.rfind('/') + 1).append(target);  // all before the last slash
}

bool Workbook::Load(const std::string& part, pugi::xml_document& document) {
  std::optional<std::string> bytes = archive_.File(part);
  if (!bytes) return false;
  if (!document.load_buffer(bytes->data(), bytes->size(), kParts)) FailDamaged();
  return true;
}

std::vector<Relation> Workbook::RelationsOf(const std::string& part) {
  const std::size_t name = part.rfind('/') + 1;
  pugi::xml_document document;
  std::vector<Relation> relations;
  if (!Load(part.substr(0, name) + "_rels/" + part.substr(name) + ".rels", document))
    return relations;
  for (const pugi::xml_node each : ChildrenNamed(document.document_element(), "Relationship"))
    relations.push_back({each.attribute("Id").as_string(), each.attribute("Type").as_string(),
                         TargetFrom(part, each.attribute("Target").as_string())});
  return relations;
}

const Relation* OfType(const std::vector<Relation>& relations, std::string_view type) {
  const auto at = std::find_if(relations.begin(), relations.end(),
                               [type](const Relation& each) { return each.type.ends_with(type); });
  return at == relations.end() ? nullptr : &*at;
}

Workbook::Workbook(std::string_view bytes, std::size_t limit) : archive_(bytes, limit) {
  const std::vector<Relation> parts = RelationsOf("");
  const Relation* const main = OfType(parts, "/officeDocument");
  if (!main) throw TableFault{TextId::NoWorkbook, {}};
  part_ = main->target;
  relations_ = RelationsOf(part_);
  if (const Relation* const texts = OfType(relations_, "/sharedStrings"))
    LoadSharedTexts(texts->target);
  pugi::xml_document styles;
  if (const Relation* const part = OfType(relations_, "/styles"))
    if (Load(part->target, styles)) dates_ = DateStyles(styles);
}

/// A text in one piece or in pieces that look differently; not how it is to be pronounced.
std::string TextIn(pugi::xml_node item) {
  std::string text = ChildNamed(item, "t").child_value();
  for (const pugi::xml_node piece : ChildrenNamed(item, "r"))
    text += ChildNamed(piece, "t").child_value();
  return Trimmed(text);
}

void Workbook::LoadSharedTexts(const std::string& part) {
  pugi::xml_document document;
  if (!Load(part, document)) return;
  for (const pugi::xml_node item : ChildrenNamed(document.document_element(), "si"))
    texts_.push_back(TextIn(item));
  if (texts_.size() > kMostTableCells)
    throw TableFault{TextId::TooManyCellsInTable, {std::to_string(kMostTableCells)}};
}

std::string Workbook::SharedText(std::string_view index) const {
  std::size_t at = 0;
  const auto [end, error] = std::from_chars(index.data(), index.data() + index.size(), at);
  if (error != std::errc{} || at >= texts_.size()) FailDamaged();
  return texts_[at];
}

bool Workbook::IsDate(pugi::xml_node cell) const {
  const std::size_t style = cell.attribute("s").as_uint();
  return style < dates_.size() && dates_[style];
}

/// The column, from 0, of a cell's place such as "BC12"; nothing where it has none.
std::optional<std::size_t> ColumnIn(std::string_view place) {
  std::size_t column = 0;
  for (const char c : place) {
    if (c < 'A' || c > 'Z') break;
    column = column * 26 + static_cast<std::size_t>(c - 'A') + 1;
    if (column > kMostTableColumns) FailDamaged();
  }
  if (column == 0) return std::nullopt;
  return column - 1;
}

void Workbook::PutCell(pugi::xml_node cell, TableRow& row) const {
  const std::string_view type = cell.attribute("t").as_string("n");
  const std::string value = Trimmed(ChildNamed(cell, "v").child_value());
  std::string text = value;
  CellKind kind = CellKind::Text;
  if (type == "s" && !value.empty()) text = SharedText(value);
  if (type == "inlineStr") text = TextIn(ChildNamed(cell, "is"));
  if (type == "d") kind = CellKind::Date;
  if (type == "b") text = value == "0" ? "FALSE" : "TRUE";
  if (type == "n" && !value.empty()) {
    const std::optional<double> number = ParseNumber(value, '.');
    if (!number || !std::isfinite(*number)) FailDamaged();
    text = ShortestText(*number);
    kind = IsDate(cell) ? CellKind::Date : CellKind::Number;
  }
  const std::size_t column = ColumnIn(cell.attribute("r").as_string()).value_or(row.cells.size());
  if (text.empty()) return;
  row.cells.resize(std::max(row.cells.size(), column + 1));
  row.kinds.resize(row.cells.size());
  row.cells[column] = std::move(text);
  row.kinds[column] = kind;
}

TableRow Workbook::RowOf(pugi::xml_node node, int line) const {
  TableRow row{line, {}};
  for (const pugi::xml_node cell : node.children())
    if (LocalName(cell.name()) == "c") PutCell(cell, row);
  return row;
}

bool IsComment(const TableRow& row) {
  const std::string& first = FirstCell(row);
  return first.starts_with('#') && !first.ends_with('!') && first != "#N/A";  // "#DIV/0!"
}

std::vector<TableRow> Workbook::RowsOf(const std::string& part) {
  pugi::xml_document document;
  if (!Load(part, document)) FailDamaged();
  std::vector<TableRow> rows;
  TableSize size;
  int line = 0;
  for (const pugi::xml_node node :
       ChildNamed(document.document_element(), "sheetData").children()) {
    if (LocalName(node.name()) != "row") continue;
    line = node.attribute("r").as_int(line + 1);
    TableRow row = RowOf(node, line);
    size.Add(row);
    if (!IsBlank(row) && !IsComment(row)) rows.push_back(std::move(row));
  }
  return rows;
}

const Relation* Workbook::PartOf(pugi::xml_node sheet) const {
  const pugi::xml_attribute id = sheet.find_attribute(
      [](const pugi::xml_attribute& each) { return LocalName(each.name()) == "id"; });
  const auto at = std::find_if(relations_.begin(), relations_.end(), [&](const Relation& each) {
    return each.id == id.as_string() && each.type.ends_with("/worksheet");
  });
  return at == relations_.end() ? nullptr : &*at;
}

SheetRead Workbook::Read(const std::optional<std::string>& name) {
  pugi::xml_document document;
  if (!Load(part_, document)) FailDamaged();
  SheetRead read;
  const Relation* chosen = nullptr;
  std::string all;
  for (const pugi::xml_node sheet :
       ChildrenNamed(ChildNamed(document.document_element(), "sheets"), "sheet")) {
    const Relation* const part = PartOf(sheet);
    if (!part) continue;
    const std::string title = sheet.attribute("name").as_string();
    const bool shown = std::string_view(sheet.attribute("state").as_string("visible")) == "visible";
    all += (all.empty() ? "" : ", ") + title;
    if (!chosen && (name ? *name == title : shown)) {
      chosen = part;
      read.name = title;
    } else if (shown) {
      read.others.push_back(title);
    }
  }
  if (!chosen) throw TableFault{TextId::NoSuchSheet, {name.value_or(""), all}};
  read.rows = RowsOf(chosen->target);
  return read;
}

}  // namespace

SheetRead ReadSheet(std::string_view bytes, const std::optional<std::string>& name,
                    std::size_t limit) {
  return Workbook(bytes, limit).Read(name);
}

TableRows TableOf(std::vector<TableRow> rows, const HeaderSigns& signs) {
  if (rows.empty()) throw TableFault{TextId::NoHeader, {}};
  const auto first = rows.begin();
  auto header = first;
  int most = 0;
  for (auto row = first; row != rows.end() && row - first <= kMostTitles; ++row) {
    const int named = signs.Named(row->cells);
    if (named <= most) continue;
    most = named;
    header = row;
  }
  return {{first, header}, *header, {header + 1, rows.end()}, 0};
}

}  // namespace velmora
