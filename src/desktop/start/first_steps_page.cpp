#include "desktop/start/first_steps_page.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/look/house_style.h"
#include "desktop/look/look.h"

namespace desktop {

using setup::Step;

FirstStepsPage::FirstStepsPage(QWidget* parent)
    : QWidget(parent),
      grid_(new QGridLayout),
      import_(new QPushButton(QStringLiteral("&Trazer viaturas e gastos de uma folha de cálculo…"), this)),
      demo_(new QPushButton(QStringLiteral("Experimentar com &dados de demonstração"), this)),
      alerts_(new QPushButton(QStringLiteral("Ver os a&lertas"), this)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(Gap(this), Gap(this), WideGap(this), WideGap(this));
  column->setSpacing(WideGap(this));
  auto* heading = new QLabel(QStringLiteral("Primeiros passos"), this);
  SetTitleFont(heading, 1.15);
  column->addWidget(heading);
  grid_->setHorizontalSpacing(WideGap(this));
  grid_->setVerticalSpacing(WideGap(this));
  grid_->setColumnStretch(1, 1);
  column->addLayout(grid_);
  AddLine(Step::kCodes, "Tabelas de base",
          "Categorias, combustíveis e outros gastos, manutenções, seguros e acessórios usuais em Portugal. O "
          "que já "
          "lá estiver fica como está.",
          "&Criar");
  AddLine(
      Step::kVehicles, "Viaturas",
      "A matrícula, a marca, o modelo, o departamento, a categoria e os quilómetros iniciais. O que ainda "
      "não existir cria-se com F4.",
      "Nova viat&ura");
  AddLine(Step::kDrivers, "Motoristas", "O nome e a validade da carta de condução.", "Novo &motorista");
  AddLine(Step::kFill, "Primeiro abastecimento",
          "Os litros e os quilómetros dão o consumo e o custo por quilómetro.", "Novo &gasto");
  AddLine(Step::kDueDates, "O que vence", "As apólices e as inspecções: o programa avisa antes de vencerem.",
          "Nova a&pólice");
  AddFoot(*column);
  Show({});
}

void FirstStepsPage::AddLine(Step step, const char* title, const char* text, const char* button) {
  const int row = grid_->rowCount();
  auto* mark = new QLabel(this);
  mark->setAlignment(Qt::AlignCenter);
  mark->setFixedWidth(Em(this) * 2);
  SetTitleFont(mark, 1.15);
  auto* words = new QVBoxLayout;
  words->setSpacing(0);
  auto* name = new QLabel(QString::fromUtf8(title), this);
  SetTitleFont(name, 1);
  auto* what = new QLabel(QString::fromUtf8(text), this);
  what->setWordWrap(true);
  SetMuted(what);
  words->addWidget(name);
  words->addWidget(what);
  auto* act = new QPushButton(QString::fromUtf8(button), this);
  act->setAutoDefault(true);  // Enter presses it
  grid_->addWidget(mark, row, 0, Qt::AlignTop);
  grid_->addLayout(words, row, 1);
  grid_->addWidget(act, row, 2, Qt::AlignTop);
  connect(act, &QPushButton::clicked, this, [this, step] { Do(step); });
  lines_.push_back({step, QString::fromUtf8(title), mark, act});
}

void FirstStepsPage::AddFoot(QVBoxLayout& column) {
  auto* foot = new QHBoxLayout;
  for (QPushButton* button : {import_, demo_, alerts_}) {
    button->setAutoDefault(true);
    foot->addWidget(button);
  }
  demo_->setToolTip(QStringLiteral("Numa base de dados à parte; esta fica como está"));
  foot->addStretch(1);
  column.addLayout(foot);
  column.addStretch(1);
  connect(import_, &QPushButton::clicked, this, &FirstStepsPage::ImportWanted);
  connect(demo_, &QPushButton::clicked, this, &FirstStepsPage::DemoWanted);
  connect(alerts_, &QPushButton::clicked, this, &FirstStepsPage::AlertsWanted);
}

void FirstStepsPage::Do(Step step) {
  switch (step) {
    case Step::kCodes:
      return CodesWanted();
    case Step::kVehicles:
      return FichaWanted("Viaturas");
    case Step::kDrivers:
      return FichaWanted("Motoristas");
    case Step::kFill:
      return FichaWanted("Gastos");
    case Step::kDueDates:
      return FichaWanted("Seguros");
  }
}

void FirstStepsPage::Show(const std::set<Step>& done) {
  done_ = done;
  int number = 0;
  const QPushButton* next = NextButton();
  for (const Line& line : lines_) {
    ++number;
    const bool ticked = done_.count(line.step) > 0;
    line.mark->setText(ticked ? QStringLiteral("✓") : QString::number(number));
    line.mark->setAccessibleName(line.title +
                                 (ticked ? QStringLiteral(": feito") : QStringLiteral(": por fazer")));
    HouseStyle::SetAccent(line.button, line.button == next);
  }
  // There is nothing due in an empty fleet.
  alerts_->setVisible(done_.count(Step::kVehicles) + done_.count(Step::kDrivers) > 0);
}

QStringList FirstStepsPage::Lines() const {
  QStringList lines;
  for (const Line& line : lines_) lines << line.mark->text() + QLatin1Char(' ') + line.mark->accessibleName();
  return lines;
}

QPushButton* FirstStepsPage::NextButton() const {
  for (const Line& line : lines_)
    if (done_.count(line.step) == 0) return line.button;
  return lines_.front().button;
}

}  // namespace desktop
