#include "app/widgets/Idiomas.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <array>
#include <cstdint>

namespace velmora {
namespace {

enum class Property : std::uint8_t { Title, Text, ToolTip, Name };  // Name: for screen readers
using enum Property;

struct CaptionRow {
  const char* window;
  const char* control;  // a control array's name stands for all its members; "" for the window
  Property property;
  std::int16_t id;  // of the text
};

/// Texts that are known by name alone.
constexpr std::int16_t IdOf(TextId text) {
  return static_cast<std::int16_t>(text);
}

// clang-format off
constexpr auto kCaptions = std::to_array<CaptionRow>({
    {"frmSplash", "lblEscolher", Text, 192},
    {"frmSplash", "cmdSair", Text, 184},
    {"frmSplash", "lblAjusteParCin", Text, 108},
    {"frmSplash", "cmdOk", Text, 417},
    {"frmSplash", "cmdOk", ToolTip, 417},
    {"frmSplash", "cmdSair", ToolTip, 426},
    {"frmSplash", "lblversao", Text, 515},

    {"dlgIntervalos", "", Title, 136},
    {"dlgIntervalos", "frameIntervalos", Text, 132},
    {"dlgIntervalos", "lblMinTempo", Text, 162},
    {"dlgIntervalos", "lblMaxTempo", Text, 160},
    {"dlgIntervalos", "OKButton", ToolTip, 409},
    {"dlgIntervalos", "CancelButton", Text, 408},
    {"dlgIntervalos", "txtMinT", Name, 162},
    {"dlgIntervalos", "txtMaxT", Name, 160},

    {"dlgIntervalos", "txtMinV", Name, IdOf(TextId::LowerBound)},
    {"dlgIntervalos", "txtMaxV", Name, IdOf(TextId::UpperBound)},

    {"dlgTamanhoFigura", "", Title, IdOf(TextId::PictureSize)},
    {"dlgTamanhoFigura", "lblLargura", Text, IdOf(TextId::PictureWidth)},
    {"dlgTamanhoFigura", "lblResolucao", Text, IdOf(TextId::PictureResolution)},
    {"dlgTamanhoFigura", "txtLargura", Name, IdOf(TextId::PictureWidth)},
    {"dlgTamanhoFigura", "txtResolucao", Name, IdOf(TextId::PictureResolution)},
    {"dlgTamanhoFigura", "CancelButton", Text, 408},

    {"dlgTituloGrafico", "", Title, 150},
    {"dlgTituloGrafico", "frameNomeGraf", Text, 168},
    {"dlgTituloGrafico", "txtTitulo", Name, 168},
    {"dlgTituloGrafico", "OKButton", ToolTip, 410},
    {"dlgTituloGrafico", "CancelButton", Text, 408},
    {"dlgTituloGrafico", "CancelButton", ToolTip, 408},

    {"frmCultBatelada", "", Title, 128},
    {"frmCultBatelada", "frameMetodo", Text, 161},
    {"frmCultBatelada", "optManual", Text, 158},
    {"frmCultBatelada", "optED", Text, 143},
    {"frmCultBatelada", "optLM", Text, 154},
    {"frmCultBatelada", "frameConjDados", Text, 122},
    {"frmCultBatelada", "chk(0)", Text, 125},
    {"frmCultBatelada", "chk(1)", Text, 126},
    {"frmCultBatelada", "chk(2)", Text, 130},
    {"frmCultBatelada", "chk", ToolTip, static_cast<std::int16_t>(TextId::DataSetUnused)},
    {"frmCultBatelada", "frameCinetProd", Text, 116},
    {"frmCultBatelada", "optPAC", Text, 178},
    {"frmCultBatelada", "optPPAC", Text, 180},
    {"frmCultBatelada", "optPNAC", Text, 179},
    {"frmCultBatelada", "frameModelo", Text, 115},
    {"frmCultBatelada", "lblModelo", Text, 163},
    {"frmCultBatelada", "frameExperimento", Text, 145},
    {"frmCultBatelada", "lblExpNaoAdic", Text, 165},
    {"frmCultBatelada", "frameCondInic", Text, 121},
    {"frmCultBatelada", "frameCoefRend", Text, 118},
    {"frmCultBatelada", "optEsteq", Text, 141},
    {"frmCultBatelada", "optGlobal", Text, 147},
    {"frmCultBatelada", "frameCondCultivo", Text, 120},
    {"frmCultBatelada", "frameCinProd", Text, 116},
    {"frmCultBatelada", "frameParametros", Text, 175},
    {"frmCultBatelada", "lblLimSup", Text, 156},
    {"frmCultBatelada", "lblLimInf", Text, 155},
    {"frmCultBatelada", "frameResultados", Text, 183},
    {"frmCultBatelada", "Label15", Text, 153},
    {"frmCultBatelada", "lblNaoSalvo", Text, 320},
    {"frmCultBatelada", "cdmSalvar", Text, 185},
    {"frmCultBatelada", "txtNExp", ToolTip, 173},
    {"frmCultBatelada", "cmbModelo", Name, 115},
    {"frmCultBatelada", "txtResultados", Name, 183},
    {"frmCultBatelada", "cdmTrocarAjuste", ToolTip, 403},
    {"frmCultBatelada", "cdmTrocarConjDados", ToolTip, 402},
    {"frmCultBatelada", "cdmTrocarCinProd", ToolTip, 401},
    {"frmCultBatelada", "cdmTrocarModelo", ToolTip, 404},
    {"frmCultBatelada", "cmdConfirmarModelo", ToolTip, 347},
    {"frmCultBatelada", "cdmSalvar", ToolTip, 428},
    {"frmCultBatelada", "cmdAjustar", ToolTip, 400},
    {"frmCultBatelada", "cmdLimpar", ToolTip, 406},
    {"frmCultBatelada", "cmdRelatorio", ToolTip, 425},
    {"frmCultBatelada", "Command1", ToolTip, 433},
    {"frmCultBatelada", "cdmBackExp", ToolTip, 432},
    {"frmCultBatelada", "lblInfo", Text, 201},
    {"frmCultBatelada", "txtCx", ToolTip, 434},
    {"frmCultBatelada", "txtCs", ToolTip, 435},
    {"frmCultBatelada", "txtCp", ToolTip, 436},
    {"frmCultBatelada", "txtTempo", ToolTip, 437},
    {"frmCultBatelada", "txtYxs", ToolTip, 438},
    {"frmCultBatelada", "txtYps", ToolTip, 439},
    {"frmCultBatelada", "txtms", ToolTip, 440},
    {"frmCultBatelada", "txtkd", ToolTip, 441},
    {"frmCultBatelada", "txtkdp", ToolTip, 442},
    {"frmCultBatelada", "txtCs1", ToolTip, 443},
    {"frmCultBatelada", "txtAlfa", ToolTip, 444},
    {"frmCultBatelada", "txtBeta", ToolTip, 445},
    {"frmCultBatelada", "txtCs2", ToolTip, 446},

    {"frmMsFlexGrid", "", Title, 149},
    {"frmMsFlexGrid", "lblNumExp", Text, 173},
    {"frmMsFlexGrid", "lblNumPontos", Text, 171},
    {"frmMsFlexGrid", "lblTFinal", Text, 189},
    {"frmMsFlexGrid", "lblDescricao", Text, 113},
    {"frmMsFlexGrid", "Label9", Text, 142},
    {"frmMsFlexGrid", "Label10", Text, 124},
    {"frmMsFlexGrid", "Label11", Text, 148},
    {"frmMsFlexGrid", "lblExperimentos", Text, 145},
    {"frmMsFlexGrid", "lblMarcador", Text, 159},
    {"frmMsFlexGrid", "MSFlexGrid1", Name, 197},
    {"frmMsFlexGrid", "lblDesejaExcluir", Text, 133},
    {"frmMsFlexGrid", "Option1(0)", Text, 164},
    {"frmMsFlexGrid", "Option1(1)", Text, 186},
    {"frmMsFlexGrid", "lblProxEtapa", Text, 182},
    {"frmMsFlexGrid", "Label15", Text, 153},
    {"frmMsFlexGrid", "Frame4", Text, 197},
    {"frmMsFlexGrid", "cmdInserir", ToolTip, 416},
    {"frmMsFlexGrid", "cmdSalvar", ToolTip, 427},
    {"frmMsFlexGrid", "cmdLimparTexto", ToolTip, 405},
    {"frmMsFlexGrid", "cmdGrafico", ToolTip, 430},
    {"frmMsFlexGrid", "cdmLinhasGrade", ToolTip, 424},
    {"frmMsFlexGrid", "cdmLegenda", ToolTip, 423},
    {"frmMsFlexGrid", "cmdExcluir", ToolTip, 413},
    {"frmMsFlexGrid", "cdmNextEtapa", ToolTip, 421},
    {"frmMsFlexGrid", "frmGrafico", Text, 200},

    {"frmParametros", "", Title, 176},
    {"frmParametros", "lblTamPop", Text, 188},
    {"frmParametros", "lblNumIt", Text, 169},
    {"frmParametros", "lblPropCross", Text, 177},
    {"frmParametros", "lblEscalaPar1", Text, 139},
    {"frmParametros", "lblEscalaPar2", Text, 140},
    {"frmParametros", "lblAcuracia", Text, 106},
    {"frmParametros", "lblNumRand", Text, 174},
    {"frmParametros", "lblEPN", Text, 199},
    {"frmParametros", "txtNPOP", Name, 188},
    {"frmParametros", "txtITER", Name, 169},
    {"frmParametros", "txtPCROS", Name, 177},
    {"frmParametros", "txtFACT", Name, 139},
    {"frmParametros", "txtFACT1", Name, 140},
    {"frmParametros", "txtEPS", Name, 106},
    {"frmParametros", "txtIU", Name, 174},
    {"frmParametros", "cdmAtualizar", Text, 407},
    {"frmParametros", "cdmAtualizar", ToolTip, 407},
    {"frmParametros", "cdmFechar", Text, 414},
    {"frmParametros", "cdmFechar", ToolTip, 414},

    {"frmRelatorio", "", Title, 506},
    {"frmRelatorio", "cmdSalvar", Text, 427},
    {"frmRelatorio", "cmdFechar", Text, 414},

    {"frmSobre", "", Title, 187},
    {"frmSobre", "lblDedPrograma", Text, 108},
    {"frmSobre", "lblAreaEstudo", Text, 109},
    {"frmSobre", "lblAutores", Text, 110},
    {"frmSobre", "lblOrganizacao", Text, 117},
    {"frmSobre", "lblEquipe", Text, 127},
    {"frmSobre", "lblFerramenta", Text, 134},
    {"frmSobre", "lblIntegracao", Text, 151},
    {"frmSobre", "lblBusca", Text, 202},
    {"frmSobre", "lblVersao", Text, 515},
    {"frmSobre", "cmdFechar", ToolTip, 414},

    {"frmZoom", "lblLegenda", Text, 152},
    {"frmZoom", "lblTempo", Text, 190},
    {"frmZoom", "cmdInsTitulo", ToolTip, 420},
    {"frmZoom", "cmdInsLegenda", ToolTip, 418},
    {"frmZoom", "cmdInsLinhas", ToolTip, 419},
    {"frmZoom", "cmdInsInterv", ToolTip, 412},
    {"frmZoom", "cmdCopiar", ToolTip, 411},
    {"frmZoom", "cmdSalvar", ToolTip, 427},
    {"frmZoom", "cmdImprimir", ToolTip, 415},
    {"frmZoom", "cmdFechar", ToolTip, 414},
    {"frmZoom", "cmdPublicacao", ToolTip, IdOf(TextId::ForPublication)},
    {"frmZoom", "cmdLogaritmo", ToolTip, IdOf(TextId::LogarithmicScale)},
    {"frmZoom", "cmdResiduos", ToolTip, IdOf(TextId::ShowResiduals)},
    {"frmZoom", "cmdTudo", ToolTip, IdOf(TextId::WholeChart)},
    {"frmZoom", "cmdVisualizar", ToolTip, IdOf(TextId::PrintPreview)},
});
// clang-format on

QString WithoutMnemonic(QString caption) {
  return caption.remove(QLatin1Char('&'));
}

/// The property that a kind of control shows as its caption; nullptr where it shows none.
const char* CaptionProperty(const QObject& control) {
  for (const char* name : {"title", "text"})
    if (control.metaObject()->indexOfProperty(name) >= 0) return name;
  return nullptr;
}

/// Buttons that show a drawing only, and boxes, are known to a screen reader by their tool tips.
bool NamedByToolTip(const QWidget& control) {
  return control.inherits("QLineEdit") || control.property("text").toString().isEmpty();
}

void Apply(QWidget& control, Property property, const QString& text) {
  switch (property) {
    case Title:
      control.setWindowTitle(text);
      break;
    case Text:
      if (const char* const shown = CaptionProperty(control)) control.setProperty(shown, text);
      break;
    case ToolTip:
      control.setToolTip(text);
      if (!NamedByToolTip(control)) return;
      break;
    case Name:
      break;
  }
  control.setAccessibleName(WithoutMnemonic(text));
}

/// Whether `name` is that of the control, or of a member of the control array, `listed`.
bool IsListed(const QString& name, QLatin1StringView listed) {
  if (!name.startsWith(listed)) return false;
  return name.size() == listed.size() || name.at(listed.size()) == QLatin1Char('(');
}

void CaptionControls(QWidget& window, const CaptionRow& row, const QString& text) {
  const QLatin1StringView listed(row.control);
  if (listed.isEmpty()) {
    Apply(window, row.property, text);
    return;
  }
  for (QWidget* const control : window.findChildren<QWidget*>())
    if (IsListed(control->objectName(), listed)) Apply(*control, row.property, text);
}

}  // namespace

void Idiomas(QWidget& window, Language language) {
  const QString name = window.objectName();
  for (const CaptionRow& row : kCaptions)
    if (name == QLatin1StringView(row.window))
      CaptionControls(window, row, Caption(TextId{row.id}, language));
  QEvent changed(QEvent::LanguageChange);
  QCoreApplication::sendEvent(&window, &changed);
}

}  // namespace velmora
