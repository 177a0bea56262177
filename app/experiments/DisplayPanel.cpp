#include "app/experiments/DisplayPanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QToolButton>

#include "app/charts/Markers.h"
#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"
#include "data/ExperimentEntry.h"

namespace velmora {
namespace {

constexpr int kSample = 16;  // px, height of what a chooser shows
constexpr QSize kLineSample(34, kSample);
constexpr int kCaptionWidth = 64;  // px; longer captions take two lines
constexpr int kNumberWidth = 88;   // px, of the first column with the place
enum Column { kPlace, kNumber, kMarker, kColour, kLine, kVisible };

/// An empty chooser of pictures.
QComboBox* Chooser(const char* array, int place, const QSize& sample, QWidget* parent) {
  auto* const chooser = Named<QComboBox>(MemberName(array, place), parent);
  chooser->setIconSize(sample);
  return chooser;
}

/// Says in words which picture is chosen.
void Describe(QComboBox& chooser) {
  const QString name = chooser.currentData(Qt::AccessibleTextRole).toString();
  chooser.setAccessibleDescription(name);
  chooser.setToolTip(name);
}

/// Calls the pictures by the texts from `first` on.
void NamePictures(QComboBox& chooser, TextId first, Language language) {
  for (int item = 0; item < chooser.count(); ++item) {
    const QString name = Caption(TextOf(first, item), language);
    for (const auto role : {Qt::AccessibleTextRole, Qt::ToolTipRole})
      chooser.setItemData(item, name, role);
  }
  Describe(chooser);
}

QLabel* CaptionLabel(const QString& name, QWidget* parent) {
  auto* const label = Named<QLabel>(name, parent);
  label->setWordWrap(true);
  label->setFixedWidth(kCaptionWidth);
  label->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
  return label;
}

}  // namespace

DisplayPanel::DisplayPanel(QWidget* parent)
    : QWidget(parent),
      others_(Named<QComboBox>("cmbOutros", this)),
      numberCaption_(CaptionLabel(QStringLiteral("lblExperimentos"), this)),
      markerCaption_(CaptionLabel(QStringLiteral("lblMarcador"), this)) {
  for (int place = 1; place <= kRows; ++place) BuildRow(place);
  LayOut();
  Wire();
  for (int place = 1; place <= kRows; ++place) SetDisplay(place, UsualDisplay(place));
  others_->hide();
}

void DisplayPanel::BuildRow(int place) {
  Row& row = At(place);
  const QSize square(kSample, kSample);
  row.number = Named<QToolButton>(MemberName("cmdMostrar", place), this);
  row.number->setCheckable(true);
  row.number->setFocusPolicy(Qt::StrongFocus);
  row.marker = Chooser("IcmbEstiloLinha", place, square, this);
  for (const std::string_view marker : kMarkers)
    row.marker->addItem(MarkerPixmap(marker, kSample), QString());
  row.colour = Chooser("IcmbCor", place, square, this);
  for (std::size_t colour = 1; colour <= kColours.size(); ++colour)
    row.colour->addItem(ColourPixmap(static_cast<std::int32_t>(colour), kSample), QString());
  row.line = Chooser("IcmbLinha", place, kLineSample, this);
  for (std::int16_t line = 1; line <= kLineStyles; ++line)
    row.line->addItem(LinePixmap(line, kLineSample), QString());
  row.visible = Named<QCheckBox>(MemberName("Check1", place), this);
}

void DisplayPanel::LayOut() {
  auto* const layout = new QGridLayout(this);
  layout->setContentsMargins({});
  layout->setVerticalSpacing(3);
  LayOutCaptions(*layout);
  layout->addWidget(others_, kRows + 1, kPlace, 1, 3);
  for (int place = 1; place <= kRows; ++place) {
    const Row& row = At(place);
    row.number->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    layout->addWidget(new QLabel(QStringLiteral("%1.").arg(place), this), place, kPlace,
                      Qt::AlignRight);
    layout->addWidget(row.number, place, kNumber);
    layout->addWidget(row.marker, place, kMarker);
    layout->addWidget(row.colour, place, kColour);
    layout->addWidget(row.line, place, kLine);
    layout->addWidget(row.visible, place, kVisible, Qt::AlignCenter);
  }
}

void DisplayPanel::LayOutCaptions(QGridLayout& layout) {
  numberCaption_->setFixedWidth(kNumberWidth);
  layout.addWidget(numberCaption_, 0, kPlace, 1, 2);
  layout.addWidget(markerCaption_, 0, kMarker);
  for (int place = 1; place <= kRows; ++place) {
    const Row& row = At(place);
    const std::pair<const char*, QWidget*> captioned[] = {
        {"Label10", row.colour}, {"Label9", row.line}, {"Label11", row.visible}};
    int column = kColour;
    for (const auto& [name, control] : captioned) {
      QLabel* const caption = CaptionLabel(MemberName(name, place), this);
      caption->setBuddy(control);
      // A column is captioned once, above it; the captions of the lower rows only name choosers.
      caption->setVisible(place == 1);
      if (place == 1) layout.addWidget(caption, 0, column);
      ++column;
    }
  }
}

void DisplayPanel::Wire() {
  connect(others_, &QComboBox::activated, this,
          [this](int index) { emit ShowWanted(kRows + 1 + index); });
  for (int place = 1; place <= kRows; ++place) {
    Row& row = At(place);
    for (QComboBox* const chooser : {row.marker, row.colour, row.line})
      connect(chooser, &QComboBox::currentIndexChanged, this, [chooser] { Describe(*chooser); });
    connect(row.number, &QToolButton::clicked, this, [this, place] { emit ShowWanted(place); });
    connect(row.marker, &QComboBox::activated, this, [this, &row](int index) {
      row.display.marker = kMarkers[static_cast<std::size_t>(index)];
      emit Edited();
    });
    connect(row.colour, &QComboBox::activated, this, [this, &row](int index) {
      row.display.colour = index + 1;
      emit Edited();
    });
    connect(row.line, &QComboBox::activated, this, [this, &row](int index) {
      row.display.line = static_cast<std::int16_t>(index + 1);
      emit Edited();
    });
    connect(row.visible, &QCheckBox::clicked, this, [this, &row](bool checked) {
      row.display.visible = checked;
      emit Edited();
    });
  }
}

void DisplayPanel::NameControls(Language language) {
  for (int place = 1; place <= kRows; ++place) {
    const Row& row = At(place);
    const auto name = [place](QWidget* control, const QLabel* caption) {
      control->setAccessibleName(caption->text() + QStringLiteral(" %1").arg(place));
    };
    const auto labelled = [this, place](const char* array) {
      return findChild<QLabel*>(MemberName(array, place));
    };
    name(row.number, numberCaption_);
    row.number->setToolTip(row.number->accessibleName());
    name(row.marker, markerCaption_);
    name(row.colour, labelled("Label10"));
    name(row.line, labelled("Label9"));
    name(row.visible, labelled("Label11"));
    NamePictures(*row.marker, TextId::MarkerFullCircle, language);
    NamePictures(*row.colour, TextId::ColourBlue, language);
    NamePictures(*row.line, TextId::LineSolid, language);
  }
  others_->setAccessibleName(numberCaption_->text());
  others_->setToolTip(numberCaption_->text());
}

void DisplayPanel::SetExperiments(const std::vector<std::int16_t>& numbers, int shown) {
  const int count = static_cast<int>(numbers.size());
  for (int place = 1; place <= kRows; ++place) {
    const Row& row = At(place);
    const bool present = place <= count;
    row.number->setText(present ? QString::number(numbers[static_cast<std::size_t>(place) - 1])
                                : QString());
    row.number->setEnabled(present);
    row.number->setChecked(place == shown);
    for (QWidget* const chooser :
         std::initializer_list<QWidget*>{row.marker, row.colour, row.line, row.visible})
      chooser->setEnabled(place <= count + 1);
  }
  others_->clear();
  for (int place = kRows + 1; place <= count; ++place)
    others_->addItem(
        QStringLiteral("%1.  %2").arg(place).arg(numbers[static_cast<std::size_t>(place) - 1]));
  const QString first = QStringLiteral("%1.").arg(kRows + 1);
  others_->setPlaceholderText(count > kRows + 1 ? first + QStringLiteral(" ... %1.").arg(count)
                                                : first);
  others_->setCurrentIndex(shown - kRows - 1);
  others_->setVisible(count > kRows);
}

void DisplayPanel::SetDisplay(int place, const DisplayEntry& display) {
  Row& row = At(place);
  row.display = display;
  row.marker->setCurrentIndex(MarkerNumber(display.marker) - 1);
  row.colour->setCurrentIndex(row.colour->count() < display.colour ? -1 : display.colour - 1);
  row.line->setCurrentIndex(row.line->count() < display.line ? -1 : display.line - 1);
  row.visible->setChecked(display.visible);
}

const DisplayEntry& DisplayPanel::Display(int place) const {
  return At(place).display;
}

}  // namespace velmora
