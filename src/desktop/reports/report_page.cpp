#include "desktop/reports/report_page.h"

#include <QApplication>
#include <QLabel>
#include <QSettings>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

#include "desktop/list/table_export.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/print/report_dialog.h"
#include "desktop/reports/chart_panel.h"
#include "desktop/reports/filter_dialog.h"
#include "desktop/reports/report_bar.h"
#include "desktop/shell/message_page.h"
#include "platform/host.h"

namespace desktop {
namespace {

constexpr int kSlow = 500;  // milliseconds after which work is worth a word

QString KeyOf(reports::TipoDeRelatorio report) {
  return QStringLiteral("relatorios/") + QString::fromUtf8(reports::TextosDe(report).chave);
}

}  // namespace

ReportPage::ReportPage(Workspace& workspace, QSettings& settings, reports::TipoDeRelatorio report,
                       const std::optional<reports::Escolha>& choice, QWidget* parent)
    : Page(parent),
      workspace_(workspace),
      settings_(settings),
      report_(report),
      keeps_(!choice),
      count_(new QLabel(this)),
      tabs_(new QTabBar(this)),
      stack_(new QStackedWidget(this)),
      splitter_(new QSplitter(this)),
      source_(new ReportSource),
      table_(new TableView(std::unique_ptr<TableSource>(source_), true, this)),
      chart_(new ChartPanel(this)),
      message_(new MessagePage(this)),
      totals_(new QLabel(this)) {
  reports::Escolha first = choice.value_or(reports::Escolha());
  if (keeps_) first.Repoe(FromQt(settings.value(KeyOf(report)).toString()));
  Build(first);
  slow_.setSingleShot(true);
  connect(&slow_, &QTimer::timeout, this, [this] { count_->setText(QStringLiteral("A calcular…")); });
  connect(bar_, &ReportBar::Changed, this, &ReportPage::Compute);
  connect(bar_, &ReportBar::FiltersWanted, this, &ReportPage::ChooseFilters);
  connect(table_, &TableView::RowChosen, this, &ReportPage::ShowChart);
  connect(table_, &TableView::RowOpened, this, &ReportPage::OpenRow);
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    auto* enter = new QShortcut(key, table_);
    enter->setContext(Qt::WidgetShortcut);
    connect(enter, &QShortcut::activated, this, &ReportPage::OpenRow);
  }
  connect(table_, &QWidget::customContextMenuRequested, this, &ReportPage::RowMenu);
  connect(tabs_, &QTabBar::tabBarClicked, this, [this](int tab) {
    if (tab >= 0) ShowTable(tables_[static_cast<std::size_t>(tab)]);
  });
  Compute();
}

ReportPage::~ReportPage() { GiveUp(); }

void ReportPage::Build(const reports::Escolha& choice) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(Heading());
  bar_ = new ReportBar(report_, choice, this);
  column->addWidget(bar_);
  tabs_->setExpanding(false);
  tabs_->setDrawBase(false);
  tabs_->hide();
  column->addWidget(tabs_);
  table_->setFrameShape(QFrame::NoFrame);
  table_->setAccessibleName(Title());
  table_->setContextMenuPolicy(Qt::CustomContextMenu);
  splitter_->addWidget(table_);
  splitter_->addWidget(chart_);
  splitter_->setChildrenCollapsible(true);
  stack_->addWidget(splitter_);
  message_->setFocusPolicy(Qt::StrongFocus);
  stack_->addWidget(message_);
  column->addWidget(stack_, 1);
  totals_->setTextFormat(Qt::PlainText);
  totals_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  totals_->setWordWrap(true);
  totals_->setContentsMargins(Gap(this), Gap(this), WideGap(this), Gap(this));
  column->addWidget(totals_);
  message_->Show(QStringLiteral("A calcular…"), {}, {}, {});
  stack_->setCurrentWidget(message_);
}

QString ReportPage::Title() const { return QString::fromUtf8(reports::TextosDe(report_).titulo); }

QString ReportPage::CountText() const {
  if (failure_ || result() == nullptr) return {};
  const RowOrder& order = table_->grid().order();
  if (!order.search().empty()) return QStringLiteral("%1 de %2").arg(order.Count()).arg(source_->Rows());
  return Counted(source_->Rows(), QStringLiteral("linha"), QStringLiteral("linhas"));
}

QString ReportPage::TotalsText() const { return totals_->text(); }

void ReportPage::Load() { Compute(); }

void ReportPage::GiveUp() {
  reading_.GiveUp();
  if (given_up_) *given_up_ = true;
}

/// What was asked for before is given up: it tells nobody what it finds.
void ReportPage::Compute() {
  GiveUp();
  given_up_ = std::make_shared<std::atomic<bool>>(false);
  if (keeps_) {
    const QString kept = ToQt(bar_->choice().Guardada());
    if (settings_.value(KeyOf(report_)) != kept) settings_.setValue(KeyOf(report_), kept);
  }
  reports::Pedido request = bar_->choice().PedidoEm(platform::Today());
  request.cancelar = [given_up = given_up_] { return given_up->load(); };
  slow_.start(kSlow);
  const auto read = [report = report_, request, seen = bar_->choice().vistos](const auto& store) {
    try {
      return std::optional(reports::Calcular(zorCrmParvel::DataAccessRef(store), report, request, seen));
    } catch (const reports::Cancelado&) {
      return std::optional<reports::Resultado>();  // of a question that nobody waits for
    }
  };
  reading_ = workspace_.reader().Ask(
      this, read,
      [this](std::optional<reports::Resultado> result) {
        if (result) Computed(std::move(*result));
      },
      [this](const ErrorText& failure) { Failed(failure); });
}

void ReportPage::Computed(reports::Resultado result) {
  slow_.stop();
  failure_.reset();
  const auto shown = std::make_shared<reports::Resultado>(std::move(result));
  shown->pedido.cancelar = nullptr;
  tables_ = reports::TabelasMostradas(*shown);
  while (tabs_->count() > 0) tabs_->removeTab(0);
  for (const std::size_t table : tables_) {
    const std::string& title = shown->relatorio.tabelas[table].titulo;
    tabs_->addTab(title.empty() ? QStringLiteral("Por viatura") : ToQt(title));
  }
  tabs_->setVisible(tables_.size() > 1);
  QStringList totals;
  for (const std::string& total : reports::Totais(*shown)) totals << ToQt(total);
  for (std::size_t i = 1; i < shown->relatorio.notas.size(); ++i) totals << ToQt(shown->relatorio.notas[i]);
  totals_->setText(totals.join(QLatin1Char('\n')));
  totals_->setVisible(!totals.isEmpty());
  source_->Show(shown, tables_.front());
  ShowTable(tables_.front());
}

void ReportPage::Failed(const ErrorText& failure) {
  slow_.stop();
  failure_ = failure;
  ShowState();
}

void ReportPage::ShowTable(std::size_t table) {
  source_->Show(result(), table);
  table_->Refresh();
  ShowState();
  ShowChart();
  Arrange();
}

void ReportPage::ShowState() {
  const RowOrder& order = table_->grid().order();
  if (failure_) {
    message_->Show(QStringLiteral("Não foi possível calcular o relatório."), WithDetails(*failure_),
                   QStringLiteral("&Tentar de novo"), [this] { Compute(); });
  } else if (order.Count() == 0 && !order.search().empty()) {
    message_->Show(QStringLiteral("Nenhuma linha corresponde a «%1».").arg(ToQt(order.search())), {},
                   QStringLiteral("&Limpar a procura"), [this] {
                     Search({});
                     Q_EMIT SearchCleared();
                   });
  } else if (order.Count() == 0) {
    message_->Show(report_ == reports::TipoDeRelatorio::kExcepcoes
                       ? QStringLiteral("Não há excepções por ver.")
                       : QStringLiteral("Não há nada no período."),
                   QStringLiteral("Escolha outro período, ou tire filtros."), {}, {});
  }
  const bool rows = !failure_ && order.Count() > 0;
  const bool had_focus = stack_->isAncestorOf(QApplication::focusWidget());
  stack_->setCurrentWidget(rows ? static_cast<QWidget*>(splitter_) : static_cast<QWidget*>(message_));
  if (had_focus) TakeFocus();
  count_->setText(CountText());
  Q_EMIT Changed();
}

std::optional<reports::LinhaDaTabela> ReportPage::Chosen() const {
  const long row = table_->CurrentRow();
  if (row < 0 || row >= source_->Rows()) return {};
  return source_->RowAt(row);
}

void ReportPage::ShowChart() {
  if (result() == nullptr) return;
  Guarded(this, [this] {
    const auto row = Chosen();
    chart_->Show(reports::GraficoDa(*result(), source_->table(), row ? &*row : nullptr));
  });
  Q_EMIT Changed();
}

/// Beside a table that leaves room for it, below one that is wide.
void ReportPage::Arrange() {
  const int table = table_->WidthWanted();
  const bool beside = table + Em(this) * 22 < width();
  splitter_->setOrientation(beside ? Qt::Horizontal : Qt::Vertical);
  const int all = beside ? width() : stack_->height();
  const int chart = beside ? std::min(all - table, all / 2) : all * 2 / 5;
  splitter_->setSizes({all - chart, chart});
}

void ReportPage::ChooseFilters() {
  Guarded(window(), [this] {
    const auto filters = reports::LerFiltros(zorCrmParvel::DataAccessRef(workspace_.store()), report_);
    FilterDialog dialog(filters, bar_->choice().filtros, window());
    if (dialog.exec() == QDialog::Accepted) bar_->SetFilters(dialog.Chosen());
  });
}

void ReportPage::TakeFocus() {
  if (stack_->currentWidget() == splitter_)
    table_->setFocus();
  else
    message_->setFocus();  // what is computed takes it over
}

QString ReportPage::SearchText() const { return ToQt(table_->grid().order().search()); }

void ReportPage::Search(const QString& text) {
  table_->Search(text);
  ShowState();
}

bool ReportPage::CanPrint() const { return !failure_ && table_->grid().order().Count() > 0; }

QStringList ReportPage::Notes() const {
  QStringList notes;
  for (const std::string& note : result()->relatorio.notas) notes << ToQt(note);
  for (const std::string& total : reports::Totais(*result())) notes << ToQt(total);
  return notes;
}

void ReportPage::Print() {
  if (!CanPrint()) return;
  Guarded(window(), [this] {
    ReportDialog(*source_, Title(), window(), {.rows = table_->grid().order().Rows(), .notes = Notes()})
        .exec();
  });
}

void ReportPage::Export() {
  if (!CanPrint()) return;
  const QString file = AskForTableFile(window(), Title());
  if (file.isEmpty()) return;
  if (Guarded(window(), [&] { ExportRows(file, *source_, table_->grid().order().Rows(), Title()); }))
    Q_EMIT Told(QStringLiteral("Escrito em %1").arg(file));
}

}  // namespace desktop
