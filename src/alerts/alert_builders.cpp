#include "alerts/alert_builders.h"

#include <algorithm>

#include "alerts/alert_rules.h"
#include "drivers/licence_classes.h"
#include "drivers/motoristas.h"
#include "events/upkeep.h"
#include "host/row.h"
#include "platform/format.h"
#include "platform/text.h"
#include "vehicles/computed_dates.h"
#include "vehicles/viaturas.h"

namespace zorCrmParvel::Tools {
namespace {

using platform::FieldType;
using platform::MemoryRecordset;
using platform::Variant;

constexpr long kNumberSize = 32;
constexpr std::int64_t kDiasDeDescarga = 10;

/// The words of a ladder.
struct Textos {
  const char* breve;
  const char* muitoBreve;
  const char* passada;
};

constexpr Textos kCartao{"Documento deve ser regularizado!", "Doc. a menos de 10 dias de caducação!",
                         "Documento caducado!"};
constexpr Textos kDocumento{"Documento deve ser regularizado!", "Documento a menos de 10 dias de caducação!",
                            "Documento caducado!"};
constexpr Textos kDescarga{"", "Descarga a menos de 10 dias!", "Data de descarga ultrapassada!"};
constexpr Textos kAcessorio{"Acessório deve ser regularizado!", "Acessório a menos de 10 dias de caducação!",
                            "Acessório caducado!"};

const char* TextoDaFaixa(Faixa faixa, const Textos& textos) {
  if (faixa == Faixa::kBreve) return textos.breve;
  return faixa == Faixa::kMuitoBreve ? textos.muitoBreve : textos.passada;
}

std::string Dia(const Variant& data) { return platform::FormatDate(data.ToDate(), "dd-mm-yyyy"); }

void AcrescentaInspecao(const RecordsetRef& rs, const Row& viatura, const std::string& mesAno,
                        const std::string& notas, std::int16_t dias) {
  const Variant marcada = viatura.value("DataPrxInsp");
  rs->AddNew();
  Row linha(*rs);
  linha.put("Matricula", viatura.value("Matricula"));
  linha.put("KmActuais", viatura.value("KmActual"));
  linha.put("MesAno", platform::Right(mesAno, 7));
  linha.put("DataPrx", marcada.IsNull() ? "" : Dia(marcada));
  linha.put("Notas", notas);
  linha.put("Dias", dias);
  rs->Update();
}

/// Adds the rows of one driver.
class DocumentosDoMotorista {
 public:
  DocumentosDoMotorista(const RecordsetRef& rs, const DataAccessRef& bd, const Row& motorista)
      : rs_(rs), bd_(bd), motorista_(motorista) {}

  void Acrescentar(const std::array<std::string, 10>& tipos) {
    if (Tem("BI")) Documento("BI", motorista_.value("DataValBI"), kCartao);
    if (Tem("CartaoCID")) Documento("CC", motorista_.value("ValCartaoCID"), kCartao);
    Cartas(tipos);
    Documento("Passaporte", motorista_.value("ValidadePassa"), kDocumento);
    if (!Tem("NoCartaoCondutor")) return;
    Documento("Cartão Condutor", motorista_.value("DtFimCartaoCondutor"), kDocumento);
    Documento("Cartão Condutor", motorista_.value("DtDescarga"), kDescarga, kDiasDeDescarga);
  }

 private:
  bool Tem(const char* numero) const { return !motorista_.textOrEmpty(numero).empty(); }

  void Cartas(const std::array<std::string, 10>& tipos) {
    RecordsetRef cartas;
    bd_->AbrirLeitura(
        "", {"Select * from zor_CartasCond where Motorista='", value(motorista_.text("Codigo")), "'"},
        cartas);
    const Row carta(*cartas);
    for (; !cartas->Eof(); cartas->MoveNext()) {
      const std::int16_t tipo = carta.integer("TipoCarta");
      if (tipo < 0 || static_cast<std::size_t>(tipo) >= tipos.size())
        throw platform::RuntimeError(platform::kSubscriptOutOfRange);
      Documento("Carta Condução - " + tipos[static_cast<std::size_t>(tipo)], carta.value("DataValidade"),
                kDocumento);
    }
    cartas->Close();
  }

  void Documento(const std::string& nome, const Variant& data, const Textos& textos,
                 std::int64_t limite = 30) {
    if (SemData(data, "30-12-1899")) return;
    const std::int64_t dias = DiasAte(data);
    const Faixa faixa = FaixaDosDias(dias, limite);
    if (faixa == Faixa::kNenhuma) return;
    rs_->AddNew();
    Row linha(*rs_);
    linha.put("Motorista", motorista_.value("Nome"));
    linha.put("Documento", nome);
    linha.put("Data", Dia(data));
    linha.put("Notas", TextoDaFaixa(faixa, textos));
    linha.put("Dias", platform::ToLong(dias));
    linha.put("Codigo", motorista_.value("Codigo"));
    rs_->Update();
  }

  const RecordsetRef& rs_;
  const DataAccessRef& bd_;
  const Row& motorista_;
};

}  // namespace

RecordsetRef RsAlertasInsp() {
  auto rs = platform::MakeRef<MemoryRecordset>();
  rs->Append("Matricula", FieldType::kText, 15);
  rs->Append("KmActuais", FieldType::kDouble, kNumberSize, false);
  rs->Append("MesAno", FieldType::kText, 10);
  rs->Append("DataPrx", FieldType::kText, 10, false);
  rs->Append("Notas", FieldType::kText, 50);
  rs->Append("Dias", FieldType::kLong, kNumberSize, false);
  rs->Open();
  return rs;
}

RecordsetRef RsAlertasMot() {
  auto rs = platform::MakeRef<MemoryRecordset>();
  rs->Append("Motorista", FieldType::kText, 80);
  rs->Append("Documento", FieldType::kText, 60);
  rs->Append("Data", FieldType::kText, 10, false);
  rs->Append("Notas", FieldType::kText, 80);
  rs->Append("Dias", FieldType::kLong, kNumberSize, false);
  rs->Append("Codigo", FieldType::kText, 15);
  rs->Open();
  return rs;
}

RecordsetRef RsAlertasAcess() {
  auto rs = platform::MakeRef<MemoryRecordset>();
  rs->Append("Matricula", FieldType::kText, 10);
  rs->Append("Acessorio", FieldType::kText, 10);
  rs->Append("Marca", FieldType::kText, 60);
  rs->Append("Data", FieldType::kText, 10, false);
  rs->Append("Notas", FieldType::kText, 80);
  rs->Append("Dias", FieldType::kLong, kNumberSize, false);
  rs->Append("Id", FieldType::kLong, kNumberSize, false);
  rs->Open();
  return rs;
}

void EncheAlertasInsp(const RecordsetRef& rs, const DataAccessRef& bd) {
  const Snapshot snapshot(bd);
  clViaturas viatura;
  viatura.bd = bd;
  const RecordsetRef viaturas = viatura.LerViaturas();
  const Row row(*viaturas);
  std::int16_t Dias = 0;
  std::string MesAno;
  for (; !viaturas->Eof(); viaturas->MoveNext()) {
    const Variant inactiva = row.value("Inactiva");
    if (inactiva.IsNull() || inactiva.ToInteger() != 0) continue;
    const platform::Date matriculada = row.date("DataMatricula");
    ProximaInspecao(row.text("Matricula"), platform::ToInteger(matriculada.year()), matriculada, Dias, MesAno,
                    row.text("Categoria"), bd);
    const Faixa faixa = FaixaDosDias(Dias);
    if (faixa == Faixa::kNenhuma) continue;
    const std::string muitoBreve = "Faltam " + std::to_string(Dias) + " dias para a inspecção!";
    const Textos textos{"Inspecção no próximo mês!", muitoBreve.c_str(), "Data da Inspecção ultrapassada!"};
    AcrescentaInspecao(rs, row, MesAno, TextoDaFaixa(faixa, textos), Dias);
  }
  viaturas->Close();
}

void EncheAlertasAcess(const RecordsetRef& rs, const DataAccessRef& bd) {
  clAcessorios acessorio;
  acessorio.bd = bd;
  const RecordsetRef acessorios = acessorio.LerTodosAcessorios();
  const Row row(*acessorios);
  for (; !acessorios->Eof(); acessorios->MoveNext()) {
    const Variant validade = row.value("DataVal");
    if (SemData(validade, "00:00:00")) continue;
    const std::int32_t dias = platform::ToLong(DiasAte(validade));
    const Faixa faixa = FaixaDosDias(dias);
    if (faixa == Faixa::kNenhuma) continue;
    rs->AddNew();
    Row linha(*rs);
    linha.put("Matricula", row.value("Matricula"));
    linha.put("Acessorio", row.value("TipoAcessorio"));
    linha.put("Marca", row.value("Marca"));
    linha.put("Data", Dia(validade));
    linha.put("Notas", TextoDaFaixa(faixa, kAcessorio));
    linha.put("Dias", dias);
    linha.put("Id", row.value("id"));
    rs->Update();
  }
  acessorios->Close();
}

void EncheAlertasMot(const RecordsetRef& rs, const DataAccessRef& bd) {
  const Snapshot snapshot(bd);
  clMotoristas motorista;
  motorista.bd = bd;
  const RecordsetRef motoristas = motorista.LerMotoristas();
  std::array<std::string, 10> tipos;
  EncheTiposCarta(tipos);
  const Row row(*motoristas);
  for (; !motoristas->Eof(); motoristas->MoveNext())
    if (row.integer("Inactivo") == 0) DocumentosDoMotorista(rs, bd, row).Acrescentar(tipos);
  motoristas->Close();
}

void EncheTiposCarta(std::array<std::string, 10>& tipos) {
  std::copy(TiposCarta().begin(), TiposCarta().end(), tipos.begin());
}

}  // namespace zorCrmParvel::Tools
