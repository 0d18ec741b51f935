#include "desktop/reports/month_panel.h"

#include <QGridLayout>
#include <QLabel>
#include <algorithm>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "platform/host.h"

namespace desktop {
namespace {

constexpr std::size_t kContractsShown = 3;

}  // namespace

MonthPanel::MonthPanel(QWidget* parent) : QWidget(parent), grid_(new QGridLayout(this)) {
  grid_->setContentsMargins(Gap(this), 0, WideGap(this), Gap(this));
  grid_->setHorizontalSpacing(Gap(this));
  grid_->setVerticalSpacing(Gap(this) / 2);
  hide();
}

void MonthPanel::Refresh(Workspace* workspace) {
  reading_.GiveUp();
  if (workspace == nullptr) return hide();
  reading_ = workspace->reader().Ask(
      this,
      [today = platform::Today()](const auto& store) {
        return reports::ResumoDe(zorCrmParvel::DataAccessRef(store), today);
      },
      [this](const reports::ResumoDoMes& month) { Show(month); }, [this](const ErrorText&) { hide(); });
}

QLabel* MonthPanel::AddLabel(const QString& text, int row, int column, bool muted) {
  auto* label = new QLabel(text, this);
  label->setTextFormat(Qt::PlainText);
  if (muted) SetMuted(label);
  grid_->addWidget(label, row, column);
  label->show();  // what is hidden takes no room when that is measured
  return label;
}

void MonthPanel::Show(const reports::ResumoDoMes& month) {
  qDeleteAll(findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly));
  lines_.clear();
  years_.clear();
  int row = 0;
  QFont bold = font();
  bold.setBold(true);
  QLabel* heading = AddLabel(ToQt(month.mes), row, 0);
  heading->setFont(bold);
  grid_->addWidget(heading, row++, 0, 1, 4);
  for (const reports::FiguraDoMes& figure : month.figuras) {
    AddLabel(ToQt(figure.nome), row, 0);
    QLabel* value = AddLabel(ToQt(figure.valor), row, 1);
    value->setFont(bold);
    value->setAlignment(Qt::AlignRight);
    AddLabel(ToQt(figure.antes), row, 2, true);
    years_.push_back(AddLabel(ToQt(figure.ano), row, 3, true));
    row += 2;
    lines_ << ToQt(figure.nome + ": " + figure.valor + "; " + figure.antes + "; " + figure.ano);
  }
  for (std::size_t i = 0; i < month.leasing.size(); ++i) {
    const auto& contract = month.leasing[i];
    lines_ << ToQt(contract.matricula + ": " + contract.texto);
    if (i >= kContractsShown) continue;
    AddLabel(QStringLiteral("Leasing ") + ToQt(contract.matricula), row, 0);
    grid_->addWidget(AddLabel(ToQt(contract.texto), row, 1), row, 1, 1, 3);
    ++row;
  }
  if (month.leasing.size() > kContractsShown) {
    const QString more =
        QStringLiteral("e mais %1, em ANÁLISE > Quilómetros").arg(month.leasing.size() - kContractsShown);
    grid_->addWidget(AddLabel(more, row, 0, true), row, 0, 1, 4);
  }
  grid_->setColumnStretch(4, 1);
  const bool known = std::any_of(month.figuras.begin(), month.figuras.end(),
                                 [](const auto& figure) { return figure.valor != "—"; });
  narrow_ = LeastWidth(false);
  wide_ = LeastWidth(true);
  PlaceYears(width() >= wide_);
  setVisible(known);
}

/// The same month of last year stands beside the month before, or below it where there is no room.
void MonthPanel::PlaceYears(bool beside) {
  int row = 1;
  for (QLabel* year : years_) {
    grid_->addWidget(year, beside ? row : row + 1, beside ? 3 : 2);
    row += 2;
  }
}

int MonthPanel::LeastWidth(bool beside) {
  PlaceYears(beside);
  return grid_->minimumSize().width();
}

QSize MonthPanel::minimumSizeHint() const { return {narrow_, QWidget::minimumSizeHint().height()}; }

void MonthPanel::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  PlaceYears(width() >= wide_);
}

}  // namespace desktop
