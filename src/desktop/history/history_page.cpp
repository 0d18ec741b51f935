#include "desktop/history/history_page.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QTableView>
#include <QTableWidget>
#include <QVBoxLayout>

#include "desktop/history/history_settings_dialog.h"
#include "desktop/history/operations_model.h"
#include "desktop/history/side_by_side.h"
#include "desktop/history/undo_dialog.h"
#include "desktop/list/item_painter.h"
#include "desktop/look/look.h"
#include "desktop/look/parts.h"
#include "desktop/look/text.h"
#include "desktop/shell/message_box.h"
#include "history/view/periods.h"
#include "history/view/table_names.h"
#include "platform/host.h"

namespace desktop {
namespace {

constexpr int kPageRows = 200;  // read ahead of what is seen
constexpr int kNearEnd = 20;    // rows

constexpr std::pair<history::Kind, const char*> kKinds[] = {{history::Kind::kAny, "Tudo o que se fez"},
                                                            {history::Kind::kCreation, "Criações"},
                                                            {history::Kind::kChange, "Alterações"},
                                                            {history::Kind::kRemoval, "Remoções"},
                                                            {history::Kind::kUndoing, "Anulações"}};

QComboBox* Choice(const char* name, QWidget* parent) {
  auto* choice = new QComboBox(parent);
  choice->setAccessibleName(QString::fromUtf8(name));
  choice->setToolTip(QString::fromUtf8(name));
  choice->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  return choice;
}

}  // namespace

HistoryPage::HistoryPage(Workspace& workspace, QWidget* parent)
    : Page(parent),
      workspace_(workspace),
      model_(new OperationsModel(workspace.kept(), this)),
      table_(new QTableView(this)),
      detail_(SideBySide({"Registo", "O que mudou"}, this)),
      who_(Choice("Quem", this)),
      when_(Choice("Quando", this)),
      where_(Choice("Onde", this)),
      kind_(Choice("O quê", this)),
      count_(new QLabel(this)),
      note_(new QLabel(this)),
      undo_(new QPushButton(QStringLiteral("An&ular…"), this)) {
  Build();
  Load();
  for (QComboBox* choice : {who_, when_, where_, kind_})
    connect(choice, &QComboBox::currentIndexChanged, this, &HistoryPage::Ask);
}

void HistoryPage::Build() {
  auto* column = new QVBoxLayout(this);
  SetMuted(count_);
  AddHeading(*column, new QLabel(Title(), this))->addWidget(count_, 0, Qt::AlignBottom);
  column->addWidget(Filters());

  table_->setModel(model_);
  table_->setAccessibleName(Title());
  table_->setFrameShape(QFrame::NoFrame);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setTabKeyNavigation(false);
  table_->setShowGrid(false);
  table_->setItemDelegate(new ItemPainter(table_));
  table_->setWordWrap(false);
  table_->verticalHeader()->hide();
  table_->horizontalHeader()->setHighlightSections(false);
  table_->horizontalHeader()->setStretchLastSection(true);
  const int letter = fontMetrics().averageCharWidth();
  const int widths[] = {9, 24, 16, 16, 44};
  for (int i = 0; i < 5; ++i) table_->setColumnWidth(i, letter * widths[i]);
  connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &HistoryPage::ShowDetail);
  connect(table_->verticalScrollBar(), &QScrollBar::valueChanged, this, &HistoryPage::WantMore);

  auto* parts = new QSplitter(Qt::Vertical, this);
  parts->addWidget(table_);
  auto* below = new QWidget(parts);
  auto* rows = new QVBoxLayout(below);
  rows->setContentsMargins(Gap(this), Gap(this), Gap(this), Gap(this));
  detail_->setAccessibleName(QStringLiteral("O que a operação mudou"));
  detail_->setColumnWidth(0, letter * 28);
  rows->addWidget(detail_, 1);
  rows->addWidget(Foot());
  parts->addWidget(below);
  parts->setStretchFactor(0, 3);
  parts->setStretchFactor(1, 2);
  parts->setChildrenCollapsible(false);
  column->addWidget(parts, 1);
}

QWidget* HistoryPage::Filters() {
  auto* filters = new QWidget(this);
  auto* row = new QHBoxLayout(filters);
  row->setContentsMargins(Gap(this), 0, WideGap(this), Gap(this));
  row->setSpacing(Gap(this));
  for (const history::Period& period : history::Periods()) when_->addItem(QString::fromUtf8(period.name));
  where_->addItem(QStringLiteral("Todas as tabelas"), QString());
  for (const history::TableName& each : history::TableNames())
    where_->addItem(QString::fromUtf8(each.name), QString::fromUtf8(each.table));
  for (const auto& [kind, name] : kKinds) kind_->addItem(QString::fromUtf8(name));
  for (QComboBox* choice : {who_, when_, where_, kind_}) row->addWidget(choice);
  row->addStretch(1);
  return filters;
}

QWidget* HistoryPage::Foot() {
  auto* foot = new QWidget(this);
  auto* row = new QHBoxLayout(foot);
  row->setContentsMargins(0, 0, 0, 0);
  SetMuted(note_);
  note_->setWordWrap(true);
  auto* settings = new QPushButton(QStringLiteral("&Guardar quanto…"), this);
  settings->setToolTip(QStringLiteral("Quanto tempo o histórico se guarda, e o lugar que ocupa"));
  undo_->setToolTip(QStringLiteral("Pôr tudo como estava antes da operação escolhida"));
  row->addWidget(note_, 1);
  row->addWidget(settings);
  row->addWidget(undo_);
  connect(settings, &QPushButton::clicked, this, &HistoryPage::ShowSettings);
  connect(undo_, &QPushButton::clicked, this, &HistoryPage::Undo);
  return foot;
}

QString HistoryPage::CountText() const {
  const long shown = model_->rowCount();
  const QString count = Counted(shown, QStringLiteral("operação"), QStringLiteral("operações"));
  if (is_reading_) return count + QStringLiteral(" · a procurar…");
  return model_->browser().AtEnd() ? count : count + QStringLiteral(" · há mais antigas");
}

/// Whether there is a history, and who stands in it.
struct HistoryPage::Head {
  bool exists = false;
  bool keeps = false;
  std::vector<std::string> operators;
};

void HistoryPage::Load() {
  reading_head_.GiveUp();
  reading_head_ = workspace_.reader().Ask(
      this,
      [](const BackgroundReader::StoreRef& store) {
        const auto kept = history::Beside(store);
        return Head{kept->HasHistory(), kept->Keeps(), history::ReadOperators(*kept)};
      },
      [this](const Head& head) { Take(head); },
      [this](const ErrorText& failure) { note_->setText(failure.headline); });
  Ask();
}

void HistoryPage::Take(const Head& head) {
  history::KeepingStore& kept = *workspace_.kept();
  if (head.exists != kept.HasHistory() || head.keeps != kept.Keeps())
    Guarded(window(), [&] { kept.LookAtSettings(); });
  const QString others = QStringLiteral(
      "Aqui está o que se fez neste programa. O que outros programas escrevem na "
      "base de dados não se vê aqui.");
  note_->setText(!head.exists
                     ? QStringLiteral("A base de dados não tem as tabelas do histórico. Quem a administra "
                                      "cria-as com «parvel esquema --aplicar».")
                 : head.keeps ? others
                              : QStringLiteral("O histórico está desligado: o que se faz agora não "
                                               "fica registado nem se pode anular."));
  const QString before = who_->currentData().toString();
  const QSignalBlocker quiet(who_);
  who_->clear();
  who_->addItem(QStringLiteral("Todos os operadores"), QString());
  for (const std::string& name : head.operators) who_->addItem(ToQt(name), ToQt(name));
  who_->setCurrentIndex(std::max(0, who_->findData(before)));
}

void HistoryPage::Ask() {
  history::Filter filter;
  filter.text = FromQt(search_.trimmed());
  filter.operador = FromQt(who_->currentData().toString());
  filter.table = FromQt(where_->currentData().toString());
  filter.kind = kKinds[std::max(0, kind_->currentIndex())].first;
  history::Apply(history::Periods()[static_cast<std::size_t>(std::max(0, when_->currentIndex()))],
                 platform::Now(), filter);
  model_->Ask(std::move(filter));
  wanted_ = kPageRows;
  ShowDetail();
  ReadOn();
  count_->setText(CountText());
}

/// A slice at a time: what is found of a long history is there at once.
void HistoryPage::ReadOn() {
  is_reading_ = true;
  reading_.GiveUp();
  reading_ = workspace_.reader().Ask(
      this,
      [filter = model_->browser().filter(),
       below = model_->browser().below()](const BackgroundReader::StoreRef& store) {
        return history::ReadOperations(*history::Beside(store), filter, below);
      },
      [this](history::Slice slice) { Take(std::move(slice)); },
      [this](const ErrorText& failure) {
        is_reading_ = false;
        count_->setText(failure.headline);
        count_->setToolTip(PlainToolTip(WithDetails(failure)));
      });
}

void HistoryPage::Take(history::Slice slice) {
  const bool first = model_->rowCount() == 0;
  model_->Take(std::move(slice));
  is_reading_ = false;
  if (!model_->browser().AtEnd() && model_->rowCount() < wanted_) ReadOn();
  if (first && model_->rowCount() > 0) table_->selectRow(0);
  count_->setText(CountText());
  Q_EMIT Changed();
}

void HistoryPage::WantMore() {
  const int last = table_->rowAt(table_->viewport()->height() - 1);
  if (model_->browser().AtEnd() || (last >= 0 && last + kNearEnd < model_->rowCount())) return;
  wanted_ = model_->rowCount() + kPageRows;
  if (!is_reading_) ReadOn();
}

void HistoryPage::ShowDetail() {
  detail_->setRowCount(0);
  reading_detail_.GiveUp();
  const history::Operation* operation = model_->At(table_->currentIndex().row());
  undo_->setEnabled(operation != nullptr && operation->undoneBy == 0 && !operation->emptied);
  if (operation == nullptr) return;
  reading_detail_ = workspace_.reader().Ask(
      this,
      [number = operation->number](const BackgroundReader::StoreRef& store) {
        return history::Browser(history::Beside(store)).DetailOf(number);
      },
      [this](const std::vector<history::DetailLine>& lines) {
        for (const history::DetailLine& line : lines)
          AddLine(*detail_, {ToQt(line.record), ToQt(line.words)});
      },
      [this](const ErrorText& failure) {
        AddLine(*detail_, {QString(), failure.headline});
      });
}

void HistoryPage::Undo() {
  const history::Operation* chosen = model_->At(table_->currentIndex().row());
  if (chosen == nullptr) return;
  const history::Operation operation = *chosen;
  const QString words = ToQt(history::ShownWords(operation));
  const int style = platform::kYesNo | platform::kQuestion | platform::kDefaultButton2;
  const QString question =
      QStringLiteral("Pôr tudo como estava antes desta operação?\n\n%1\n%2, %3")
          .arg(words, ToQt(operation.operador), ToQt(history::ShownMoment(operation.moment)));
  if (ShowMessage(window(), question, style, QStringLiteral("Anular")) != platform::kYes) return;
  const bool done = Guarded(window(), [&] {
    if (AskAndUndo(workspace_.kept(), operation, window())) Q_EMIT Told(QStringLiteral("Anulado: ") + words);
  });
  if (!done) return;
  Load();
  Q_EMIT Worked();
}

void HistoryPage::ShowSettings() {
  if (HistorySettingsDialog(workspace_, window()).exec() == QDialog::Accepted) Load();
}

void HistoryPage::TakeFocus() { table_->setFocus(); }

void HistoryPage::Search(const QString& text) {
  search_ = text;
  Ask();
}

}  // namespace desktop
