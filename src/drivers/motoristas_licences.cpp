// The grid of licence classes on the driver's ficha: one row a class, one date each, in zor_CartasCond.
#include "drivers/licence_classes.h"
#include "drivers/motoristas_form.h"
#include "host/row.h"
#include "host/tools.h"
#include "platform/format.h"
#include "platform/host.h"

namespace zorCrmParvel {
namespace {

constexpr const char* kTipo = "Tipo";
constexpr const char* kData = "Data";
constexpr const char* kRecusa = "A Data de Validade não pode ser inferior à data dia!";
constexpr const char* kRecusaDoCalendario = "A data de Validade não pode ser inferior à data dia!";

}  // namespace

void Motoristas::Act_Grelha() {
  Grelha.SetRow(-1);
  Grelha.ClearColumns();
  Grelha.ClearStyles();
  platform::GridStyle& heading = Grelha.AddStyle("Heading");
  heading.fontName = "Verdana";
  Grelha.AddColumn(kTipo, "Tipo Carta", 4000);
  Grelha.AddColumn(kData, "Data Validade", 1500);
  Grelha.EditableColumn = kData;
  Grelha.SetRowCount(Combo1.ListCount());
  for (int tipo = 0; tipo < Combo1.ListCount(); ++tipo) {
    Grelha.SetCell(tipo, kTipo, Combo1.List[static_cast<std::size_t>(tipo)]);
    Grelha.SetCell(tipo, kData, "");
  }
  MonthView1.Visible = false;
}

void Motoristas::LerCartas() {
  Grelha.Redraw = false;
  for (int tipo = 0; tipo < Combo1.ListCount(); ++tipo) {
    RecordsetRef rs;
    mybd->AbrirLeitura("",
                       {" Select * from zor_CartasCond where Motorista='", value(Campo[0].Text),
                        "' and TipoCarta=", value(tipo)},
                       rs);
    const bool tem = rs->RecordCount() > 0;
    Grelha.SetCell(tipo, kData,
                   tem ? platform::Format(rs->Fields("DataValidade").Value(), "dd-mm-yyyy") : "");
    rs->Close();
  }
  Grelha.Redraw = true;
}

void Motoristas::GravarCartas() {
  for (int tipo = 0; tipo < Combo1.ListCount() && tipo < Grelha.RowCount(); ++tipo) GravarCarta(tipo);
}

void Motoristas::GravarCarta(int tipo) {
  const std::string data = Grelha.CellText(tipo, Grelha.ColumnIndex(kData));
  RecordsetRef rs;
  mybd->AbrirEdicao({"SELECT * From zor_CartasCond WHERE     (Motorista = N'", value(motorista_.Codigo),
                     "' and TipoCarta=", value(tipo), ")"},
                    rs);
  const bool tem = !rs->Eof();
  if (!data.empty()) {
    Row row(*rs);
    if (!tem) {
      rs->AddNew();
      row.put("Motorista", motorista_.Codigo);
      row.put("TipoCarta", static_cast<std::int16_t>(tipo));
    }
    row.put("DataValidade", platform::Date::Parse(data));
    rs->Update();
  }
  rs->Close();
  if (tem && data.empty())
    mybd->ExecutarSql("", {"Delete from zor_CartasCond where Motorista='", value(motorista_.Codigo),
                           "' and tipoCarta=", value(tipo)});
}

/// A date typed into the grid: today still passes. An empty cell takes the class away.
void Motoristas::ValidarDataDaCarta(const std::string& texto, bool& cancel) {
  if (texto.empty()) return;
  platform::Date data;
  const char* recusa = nullptr;
  if (!platform::Date::TryParse(texto, data))
    recusa = "Data inválida!";
  else if (platform::FormatDate(data, "yyyy-MM-dd") < platform::FormatDate(platform::Today(), "yyyy-MM-dd"))
    recusa = kRecusa;
  cancel = recusa != nullptr;
  if (cancel) Tools::Mensagem("", recusa, Tools::kAviso);
}

/// The calendar of the current row, on the row's date.
void Motoristas::MostrarCalendario() {
  MonthView1.Visible = Grelha.Row() >= 0;
  if (!MonthView1.Visible) return;
  platform::Date data;
  const std::string texto = Grelha.CellText(Grelha.Row(), Grelha.ColumnIndex(kData));
  MonthView1.Value = platform::Date::TryParse(texto, data) ? data : platform::Today();
}

/// A date of the calendar: it is compared with this very moment, so that today is too early. The calendar has
/// then served its row, which gets the focus back.
void Motoristas::EscolherDataDaCarta(platform::Date data, const char* recusa) {
  if (Grelha.Row() < 0) return;
  if (data < platform::Now())
    Tools::Mensagem("", recusa, Tools::kAviso);
  else
    Grelha.SetCell(Grelha.Row(), kData, platform::FormatDate(data, "dd-mm-yyyy"));
  Grelha.SetFocus();
  MonthView1.Visible = false;
}

void Motoristas::LigarGrelha() {
  Grelha.ValidateEdit = [this](long, const std::string& texto, bool& cancel) {
    ValidarDataDaCarta(texto, cancel);
  };
  Grelha.GotFocus = [this] {
    if (Grelha.Row() < 0 && Grelha.RowCount() > 0) Grelha.SetRow(0);
    MostrarCalendario();
  };
  Grelha.Click = [this](long) { MostrarCalendario(); };
  Grelha.KeyPress = [this](int& keyCode) {
    if (keyCode != platform::kKeyEnter) return;
    MostrarCalendario();
    MonthView1.SetFocus();
    keyCode = platform::kKeyNone;
  };
  MonthView1.DateClick = [this](platform::Date data) { EscolherDataDaCarta(data, kRecusaDoCalendario); };
  MonthView1.KeyPress = [this](int& keyCode) {
    if (keyCode != platform::kKeyEnter) return;
    EscolherDataDaCarta(MonthView1.Value, kRecusa);
    keyCode = platform::kKeyNone;
  };
}

}  // namespace zorCrmParvel
