#include "desktop/ficha/ficha_aids.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/shell/message_box.h"
#include "history/act.h"
#include "history/undo.h"
#include "host/ficha.h"

namespace desktop {
namespace {

/// The newest of this window's that can be taken back; 0 in a database that remembers none.
long NewestOperation() {
  return history::OpenStores().empty() ? 0 : history::OpenStores().back()->Newest().head;
}

QPushButton* MakeButton(const QString& text, QWidget* parent) {
  auto* button = new QPushButton(text, parent);
  button->setAutoDefault(false);
  button->hide();
  return button;
}

bool Holds(const std::vector<entry::KnownCode>& codes, const std::string& code) {
  return std::any_of(codes.begin(), codes.end(),
                     [&code](const entry::KnownCode& one) { return one.code == code; });
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

template <typename Read, typename Done>
ReadTicket FichaAids::Ask(Read read, Done done) {
  if (reader_ != nullptr)
    return reader_->Ask(
        this,
        [read](const BackgroundReader::StoreRef& store) {
          return read(zorCrmParvel::DataAccessRef(std::shared_ptr<zorCrmParvel::DataAccess>(store)));
        },
        done, [](const ErrorText&) {});  // what the module reads itself meets the same failure, and tells it
  done(read(Database()));
  return {};
}

/// The codes of a field are read when it gets the keyboard, so that they are there when it is left.
void FichaAids::ReadCodes() {
  const entry::CodeField* field = entry::CodeFieldOf(form_.ActiveControl());
  if (std::exchange(entered_, field) == field || field == nullptr || reader_ == nullptr || !Database())
    return;
  reading_codes_.GiveUp();
  reading_codes_ =
      Ask([field](const zorCrmParvel::DataAccessRef& bd) { return entry::CodesOf(bd, *field); },
          [this, field](std::vector<entry::KnownCode> codes) { codes_[field] = std::move(codes); });
}

/// Who leaves the field before they have come waits for them.
const std::vector<entry::KnownCode>& FichaAids::CodesOf(const entry::CodeField& field) {
  const auto known = codes_.find(&field);
  if (known != codes_.end() && reader_ != nullptr) return known->second;
  return codes_[&field] = entry::CodesOf(Database(), field);
}

void FichaAids::Spell() {
  const entry::CodeField* field = entry::CodeFieldOf(form_.ActiveControl());
  if (field == nullptr || !Database()) return;
  auto& input = static_cast<platform::zor_input&>(*form_.ActiveControl());
  if (input.Text.empty()) return;
  const std::vector<entry::KnownCode>& codes = CodesOf(*field);
  std::string meant = entry::CodeMeant(codes, input.Text);
  if (!Holds(codes, meant) && entry::NamesVehicle(*field)) meant = entry::PlateSpelled(meant);
  if (meant != input.Text) form_.UserTypes(input, meant);
}

/// A code that is there was refused for another reason, which the ficha has told.
void FichaAids::Kept(const platform::Control& field) {
  const entry::CodeField* code = entry::CodeFieldOf(&field);
  kept_ = code != nullptr && Database() ? &static_cast<const platform::zor_input&>(field) : nullptr;
  if (kept_ == nullptr) return;
  kept_text_ = kept_->Text;
  if (Holds(CodesOf(*code), kept_text_)) kept_ = nullptr;
}

void FichaAids::BeforeCodeForm() {
  opened_ = entry::CodeFieldOf(form_.ActiveControl());
  const auto* input = dynamic_cast<const platform::zor_input*>(form_.ActiveControl());
  if (input == nullptr || !input->Text.empty() || !Database()) opened_ = nullptr;
  if (opened_ != nullptr) before_form_ = CodesOf(*opened_);
}

void FichaAids::AfterCodeForm() {
  const entry::CodeField* field = opened_;
  if (field == nullptr || form_.IsClosed()) return;
  reading_codes_.GiveUp();
  reading_codes_ =
      Ask([field](const zorCrmParvel::DataAccessRef& bd) { return entry::CodesOf(bd, *field); },
          [this, field](std::vector<entry::KnownCode> codes) { TakeMade(*field, std::move(codes)); });
}

/// The code that was just made goes into its field, if that is as it was.
void FichaAids::TakeMade(const entry::CodeField& field, std::vector<entry::KnownCode> codes) {
  const std::string made = entry::CodeMade(before_form_, codes);
  codes_[&field] = std::move(codes);
  if (made.empty() || form_.IsClosed() || entry::CodeFieldOf(form_.ActiveControl()) != &field) return;
  auto& input = static_cast<platform::zor_input&>(*form_.ActiveControl());
  if (input.Text.empty()) act_([&] { form_.UserTypes(input, made); });
}

void FichaAids::BeforeButton() {
  saved_ = 0;
  before_ = NewestOperation();
}

void FichaAids::AfterButton(const std::string& record) {
  saved_ = NewestOperation();
  if (saved_ == before_) saved_ = 0;
  if (saved_ == 0) return;
  saved_words_ = QStringLiteral("Guardado: ") + ToQt(record);
  ForgetPast();
}

QString FichaAids::LikeLast() {
  QString said;
  act_([&] { said = ToQt(entry::LikeLast(form_, taken_)); });
  return said;
}

/// Something was written: what was read before is old.
void FichaAids::ForgetPast() {
  judging_.GiveUp();
  draft_.reset();
  judged_ = {};
  dated_.reset();
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

/// Has it found which dates the record on the ficha is without.
void FichaAids::ReadDates() {
  std::optional<entry::DatedRecord> record = entry::DatedRecordOn(form_);
  if (record == dated_ || !Database()) return;
  dated_ = std::move(record);
  stored_ = {};
  reading_dates_.GiveUp();
  if (!dated_) return;
  reading_dates_ = Ask(
      [record = *dated_](const zorCrmParvel::DataAccessRef& bd) { return entry::StoredDatesOf(bd, record); },
      [this](entry::StoredDates stored) {
        stored_ = std::move(stored);
        if (stored_.is_new || !stored_.empty.empty()) Show();
      });
}

void FichaAids::Show() {
  if (form_.IsClosed()) return;
  QStringList lines;
  bool unset = false;
  bool unplanned = false;
  Guarded(line_->window(), [&] {
    Judge();
    ReadDates();
    ReadCodes();
    if (kept_ != form_.ActiveControl() || (kept_ != nullptr && kept_->Text != kept_text_)) kept_ = nullptr;
    const entry::CodeField* kept = entry::CodeFieldOf(kept_);
    const std::string advice = kept != nullptr ? entry::AdviceOn(*kept, kept_text_) : std::string();
    if (!advice.empty()) lines << ToQt(advice);
    for (const std::string& warning : judged_.warnings) lines << QStringLiteral("Atenção: ") + ToQt(warning);
    QStringList dates;
    for (const entry::UnsetDate& date : entry::UnsetDatesOn(form_, stored_)) dates << ToQt(date.caption);
    unset = !dates.isEmpty();
    if (unset)
      lines << QStringLiteral("Sem data guardada, ficam com a de hoje ao confirmar: %1.")
                   .arg(dates.join(QStringLiteral(", ")));
    if (entry::RegistersToday(form_, stored_))
      lines << QStringLiteral(
          "Data de matrícula (em DUC): fica a de hoje, e dela contam a inspecção e o selo.");
    unplanned = entry::LacksRevision(form_);
    if (unplanned) lines << QStringLiteral("Sem quilómetros da próxima revisão, ela conta como passada.");
  });
  const bool saved = saved_ != 0 && lines.isEmpty();
  if (saved) lines << saved_words_;
  undo_->setVisible(saved);
  dates_->setText(unplanned ? QStringLiteral("&Deixar por marcar") : QStringLiteral("&Deixar sem data"));
  dates_->setVisible(unset || unplanned);
  text_->setText(lines.join(QLatin1Char('\n')));
  line_->setVisible(!lines.isEmpty());
}

/// What somebody changed since is left as it is: the main window's own undo asks about it.
void FichaAids::TakeBack() {
  if (saved_ == 0 || history::OpenStores().empty()) return;
  // The store is the window's, and stays as long as any ficha.
  const std::shared_ptr<history::KeepingStore> store(history::OpenStores().back(), [](auto*) {});
  std::string said = "Anulado.";
  Guarded(line_->window(), [&] {
    if (history::Conflicts(*store, saved_).empty())
      history::Undo(store, saved_);
    else
      said = "Alguém alterou o mesmo entretanto: anule na janela principal (Ctrl+Z).";
  });
  saved_ = 0;
  ForgetPast();
  act_([&] { form_.Notify(said); });
}

void FichaAids::LeaveDates() {
  act_([this] { entry::LeaveWithout(form_, entry::UnsetDatesOn(form_, stored_)); });
}

}  // namespace desktop
