#include "desktop/ficha/ficha_aids.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/shell/message_box.h"
#include "entry/like_last.h"
#include "history/act.h"
#include "history/undo.h"
#include "host/ficha.h"

namespace desktop {
namespace {

/// The newest act that can be taken back; nothing in a database that remembers none.
std::optional<history::Operation> LastAct() {
  const auto& stores = history::OpenStores();
  if (stores.empty() || !stores.back()->Keeps()) return {};
  return history::LastToUndo(*stores.back());
}

QPushButton* MakeButton(const QString& text, QWidget* parent) {
  auto* button = new QPushButton(text, parent);
  button->setAutoDefault(false);
  button->hide();
  return button;
}

}  // namespace

FichaAids::FichaAids(platform::Form& form, QWidget* parent,
                     std::function<void(const std::function<void()>&)> act, BackgroundReader* reader)
    : QObject(parent),
      form_(form),
      act_(std::move(act)),
      line_(new QWidget(parent)),
      text_(new QLabel(line_)),
      undo_(MakeButton(QStringLiteral("Anu&lar o que se guardou"), line_)),
      dates_(MakeButton(QString(), line_)),
      reader_(reader) {
  auto* row = new QHBoxLayout(line_);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(text_, 1);
  row->addWidget(undo_);
  row->addWidget(dates_);
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  text_->setAccessibleName(QStringLiteral("Avisos"));
  connect(undo_, &QPushButton::clicked, this, &FichaAids::TakeBack);
  connect(dates_, &QPushButton::clicked, this, &FichaAids::LeaveDates);
  line_->hide();
}

QString FichaAids::Text() const { return line_->isHidden() ? QString() : text_->text(); }

zorCrmParvel::DataAccessRef FichaAids::Database() const {
  const auto* ficha = dynamic_cast<const zorCrmParvel::Ficha*>(&form_);
  return ficha != nullptr ? ficha->mybd : zorCrmParvel::DataAccessRef();
}

void FichaAids::Spell() {
  const entry::CodeField* field = entry::CodeFieldOf(form_.ActiveControl());
  if (field == nullptr || !Database()) return;
  auto& input = static_cast<platform::zor_input&>(*form_.ActiveControl());
  if (input.Text.empty()) return;
  const std::vector<std::string> codes = entry::CodesOf(Database(), *field);
  std::string meant = entry::CodeMeant(codes, input.Text);
  if (std::find(codes.begin(), codes.end(), meant) == codes.end() && entry::NamesVehicle(*field))
    meant = entry::PlateSpelled(meant);
  if (meant != input.Text) form_.UserTypes(input, meant);
}

void FichaAids::BeforeCodeForm() {
  code_field_ = entry::CodeFieldOf(form_.ActiveControl());
  const auto* input = dynamic_cast<const platform::zor_input*>(form_.ActiveControl());
  if (input == nullptr || !input->Text.empty() || !Database()) code_field_ = nullptr;
  if (code_field_ != nullptr) codes_ = entry::CodesOf(Database(), *code_field_);
}

void FichaAids::AfterCodeForm() {
  if (code_field_ == nullptr || form_.IsClosed() || entry::CodeFieldOf(form_.ActiveControl()) != code_field_)
    return;
  auto& input = static_cast<platform::zor_input&>(*form_.ActiveControl());
  const std::string made = entry::CodeMade(codes_, entry::CodesOf(Database(), *code_field_));
  if (input.Text.empty() && !made.empty()) form_.UserTypes(input, made);
}

void FichaAids::BeforeButton() {
  saved_.reset();
  before_ = LastAct();
}

void FichaAids::AfterButton(const std::string& record) {
  const std::optional<history::Operation> now = LastAct();
  if (!now || (before_ && before_->number == now->number)) return;
  saved_ = now;
  saved_words_ = QStringLiteral("Guardado: ") + ToQt(record);
  ForgetPast();
  unset_.Forget();
}

QString FichaAids::LikeLast() {
  QString said;
  act_([&] { said = ToQt(entry::LikeLast(form_)); });
  return said;
}

/// Something was written: what was read before is old.
void FichaAids::ForgetPast() {
  judging_.GiveUp();
  draft_.reset();
  judged_ = {};
}

/// Has the expense that stands on the ficha judged; until that is done, what was said of it last stays.
void FichaAids::Judge() {
  if (reader_ == nullptr) return;
  std::optional<entry::ExpenseDraft> draft = entry::DraftOn(form_);
  if (draft == draft_) return;
  judging_.GiveUp();
  draft_ = std::move(draft);
  if (!draft_) {
    judged_.warnings.clear();
    return;
  }
  judging_ = reader_->Ask(
      this,
      [draft = *draft_, past = judged_.past](const BackgroundReader::StoreRef& store) {
        Judgement judged{.past = past, .warnings = {}};
        if (judged.past == nullptr || judged.past->day() != draft.date.DayOnly())
          judged.past = std::make_shared<entry::ExpensePast>(zorCrmParvel::DataAccessRef(store), draft.date);
        judged.warnings = judged.past->Warnings(draft);
        return judged;
      },
      [this](Judgement judged) {
        judged_ = std::move(judged);
        Show();
      },
      [](const ErrorText&) {});  // Confirmar meets the same failure, and tells it
}

void FichaAids::Show() {
  if (form_.IsClosed()) return;
  QStringList lines;
  bool unset = false;
  bool unplanned = false;
  Guarded(line_->window(), [&] {
    Judge();
    for (const std::string& warning : judged_.warnings) lines << QStringLiteral("Atenção: ") + ToQt(warning);
    QStringList dates;
    for (const entry::UnsetDate& date : unset_.Of(form_)) dates << ToQt(date.caption);
    unset = !dates.isEmpty();
    if (unset)
      lines << QStringLiteral("Sem data guardada, ficam com a de hoje ao confirmar: %1.")
                   .arg(dates.join(QStringLiteral(", ")));
    if (unset_.RegistersToday(form_))
      lines << QStringLiteral(
          "Data de matrícula (em DUC): fica a de hoje, e dela contam a inspecção e o selo.");
    unplanned = entry::UnsetDates::LacksRevision(form_);
    if (unplanned) lines << QStringLiteral("Sem quilómetros da próxima revisão, ela conta como passada.");
  });
  const bool saved = saved_ && lines.isEmpty();
  if (saved) lines << saved_words_;
  undo_->setVisible(saved);
  dates_->setText(unplanned ? QStringLiteral("&Deixar por marcar") : QStringLiteral("&Deixar sem data"));
  dates_->setVisible(unset || unplanned);
  text_->setText(lines.join(QLatin1Char('\n')));
  line_->setVisible(!lines.isEmpty());
}

/// What somebody changed since is left as it is: the main window's own undo asks about it.
void FichaAids::TakeBack() {
  if (!saved_ || history::OpenStores().empty()) return;
  // The store is the window's, and stays as long as any ficha.
  const std::shared_ptr<history::KeepingStore> store(history::OpenStores().back(), [](auto*) {});
  std::string said = "Anulado.";
  Guarded(line_->window(), [&] {
    if (history::Conflicts(*store, saved_->number).empty())
      history::Undo(store, saved_->number);
    else
      said = "Alguém alterou o mesmo entretanto: anule na janela principal (Ctrl+Z).";
  });
  saved_.reset();
  ForgetPast();
  unset_.Forget();
  act_([&] { form_.Notify(said); });
}

void FichaAids::LeaveDates() {
  act_([this] { entry::UnsetDates::LeaveWithout(form_, unset_.Of(form_)); });
}

}  // namespace desktop
