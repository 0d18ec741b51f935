#include "desktop/reports/report_window.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/reports/report_page.h"

namespace desktop {

ReportWindow::ReportWindow(Workspace& workspace, QSettings& settings, const reports::MaisPerto& closer,
                           QWidget* parent)
    : QDialog(parent),
      page_(new ReportPage(workspace, settings, closer.tipo, reports::Escolha::De(closer.pedido), this)) {
  setObjectName(QStringLiteral("relatorio"));
  setWindowTitle(ToQt(closer.titulo));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(page_, 1);
  auto* row = new QHBoxLayout;
  row->setContentsMargins(Gap(this), 0, WideGap(this), WideGap(this));
  row->addStretch(1);
  const auto add = [&](const QString& text, auto&& act) {
    auto* button = new QPushButton(text, this);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, act);
    row->addWidget(button);
  };
  add(QStringLiteral("&Imprimir…"), [this] { page_->Print(); });
  add(QStringLiteral("E&xportar…"), [this] { page_->Export(); });
  add(QStringLiteral("&Fechar"), [this] { reject(); });
  column->addLayout(row);
  for (auto* button : findChildren<QPushButton*>()) button->setAutoDefault(false);
  resize(QSize(Em(this) * 66, Em(this) * 42).boundedTo(RoomOnScreen(this)));
  page_->TakeFocus();
}

}  // namespace desktop
