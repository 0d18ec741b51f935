#include "alerts/alert_builders.h"
#include "alerts/alert_list.h"
#include "alerts/alert_statements.h"

namespace zorCrmParvel {
namespace {

using platform::FormatCondition;
using platform::kGridBetween;
using platform::kGridInteger;
using platform::kGridLess;
using platform::kGridLong;
using platform::kGridText;
using Tools::Faixa;

constexpr std::uint32_t kVermelho = 0xFF0000;
constexpr std::uint32_t kLaranja = 0xFF8000;
constexpr std::uint32_t kAmarelo = 0xFFFF00;
constexpr std::uint32_t kMagenta = 0xFF00FF;
constexpr std::uint32_t kAzul = 0x0000FF;

constexpr const char* kDoSistema = "SISTEMA";

template <const char* (*Sql)()>
RecordsetRef Ler(const DataAccessRef& bd) {
  RecordsetRef linhas;
  bd->AbrirLeitura("", Sql(), linhas);
  return linhas;
}

template <RecordsetRef (*Novo)(), void (*Encher)(const RecordsetRef&, const DataAccessRef&)>
RecordsetRef Construir(const DataAccessRef& bd) {
  RecordsetRef linhas = Novo();
  Encher(linhas, bd);
  return linhas;
}

ColunaDeLista Coluna(const char* nome, const char* legenda, float largura, int tipo = kGridText) {
  return {nome, largura, legenda, tipo, 4, 5};
}

ColunaDeLista EmQuilometros(const char* nome, const char* legenda, float largura) {
  return {nome, largura, legenda, kGridLong, 4, 5, true, false, "#,###,###"};
}

/// A column that holds a key or colours the rows, and isn't shown.
ColunaDeLista Oculta(const char* nome, const char* legenda, float largura, int tipo,
                     const char* marca = kDoSistema) {
  return {nome, largura, legenda, tipo, 4, 5, false, true, "", marca};
}

FormatCondition Abaixo(const char* estilo, double valor, const char* coluna) {
  return {.style = estilo,
          .band = static_cast<int>(Faixa::kPassada),
          .op = kGridLess,
          .value1 = valor,
          .column = coluna};
}

FormatCondition Entre(const char* estilo, Faixa faixa, double de, double ate, const char* coluna) {
  return {.style = estilo,
          .band = static_cast<int>(faixa),
          .op = kGridBetween,
          .value1 = de,
          .value2 = ate,
          .column = coluna};
}

std::vector<EstiloDeAlerta> Estilos(std::uint32_t passada, std::uint32_t muitoBreve, std::uint32_t breve) {
  return {{"PintarG", passada}, {"PintarMG", muitoBreve}, {"PintarMnG", breve}};
}

std::vector<FormatCondition> FaixasDeDias() {
  return {Abaixo("PintarG", 0, "Dias"), Entre("PintarMnG", Faixa::kBreve, 10, 30, "Dias"),
          Entre("PintarMG", Faixa::kMuitoBreve, 0, 10, "Dias")};
}

}  // namespace

const ListaDeAlertas kAlertasDeApolices{
    "Alertas - Apólices",
    &Ler<&Tools::SqlAlertasApolices>,
    Estilos(kVermelho, kLaranja, kLaranja),
    {Coluna("Matricula", "Matrícula", 1500), Coluna("Apolice", "Apólice", 2000),
     Coluna("TpApol", "Tipo Apólice", 2000), Coluna("Data", "Data Validade", 1500),
     Coluna("Notas", "Notas", 4550), Oculta("Dias", "Dias", 1550, kGridInteger, "")},
    FaixasDeDias(),
    "Matricula",
    "Viaturas",
    "CarregaViatura"};

const ListaDeAlertas kAlertasDeRevisoes{
    "Alertas - Revisões",
    &Ler<&Tools::SqlAlertasRevisoes>,
    {{"PintarG", kVermelho},
     {"PintarMG", kLaranja},
     {"PintarMnG", kAmarelo},
     {"PintarGKm", kVermelho},
     {"PintarMGKm", kLaranja},
     {"PintarMnGKm", kAmarelo}},
    {Coluna("Matricula", "Matrícula", 1200), Coluna("Nome", "Marca", 2000),
     EmQuilometros("KmActual", "Km Actuais", 1500), EmQuilometros("KmPrxRev", "Km Prx.Rev.", 1500),
     Coluna("DataPrxRev", "Data Prx.Rev.", 1500), Coluna("Notas", "Notas", 4550),
     Oculta("Dias", "Dias", 1550, kGridInteger), Oculta("Km", "Km", 1550, kGridLong)},
    {Abaixo("PintarG", 0, "Dias"), Entre("PintarMnG", Faixa::kBreve, 10, 30, "Dias"),
     Entre("PintarMG", Faixa::kMuitoBreve, 0, 10, "Dias"), Abaixo("PintarGKm", 0, "Km"),
     Entre("PintarMnGKM", Faixa::kBreve, 500, 1000, "Km"),
     Entre("PintarMGKm", Faixa::kMuitoBreve, 0, 500, "Km")},
    "Matricula",
    "Viaturas",
    "CarregaViatura"};

const ListaDeAlertas kAlertasDeViaturas{
    "Alertas - Viaturas",
    &Ler<&Tools::SqlAlertasViaturas>,
    {{"PintarG", kVermelho}, {"PintarMnG", kMagenta}, {"PintarGKm", kVermelho}, {"PintarMnGKm", kMagenta}},
    {Coluna("Matricula", "Matrícula", 1200), Coluna("Marca", "Marca", 2000), Coluna("Data", "Data", 1500),
     Coluna("Notas", "Notas", 4550), Oculta("DiasSelo", "Dias", 1550, kGridInteger),
     Oculta("DiasTac", "DiasTac", 1550, kGridLong)},
    {Abaixo("PintarG", 0, "DiasSelo"), Entre("PintarMnG", Faixa::kBreve, 0, 30, "DiasSelo"),
     Abaixo("PintarGKm", 0, "DiasTac"), Entre("PintarMnGKM", Faixa::kBreve, 0, 10, "DiasTac")},
    "Matricula",
    "Viaturas",
    "CarregaViatura"};

const ListaDeAlertas kAlertasDeInspeccoes{
    "Alertas - Inspecções",
    &Construir<&Tools::RsAlertasInsp, &Tools::EncheAlertasInsp>,
    Estilos(kVermelho, kLaranja, kLaranja),
    {Coluna("Matricula", "Matrícula", 1500), EmQuilometros("KmActuais", "Km Actuais", 1800),
     Coluna("MesAno", "Mês/Ano", 1800), Coluna("DataPrx", "Data Prx.Insp.", 1700),
     Coluna("Notas", "Notas", 4200), Oculta("Dias", "Dias", 1000, kGridLong)},
    FaixasDeDias(),
    "Matricula",
    "Viaturas",
    "CarregaViatura"};

const ListaDeAlertas kAlertasDeMotoristas{
    "Alertas - Motoristas",
    &Construir<&Tools::RsAlertasMot, &Tools::EncheAlertasMot>,
    Estilos(kVermelho, kMagenta, kAzul),
    {Coluna("Motorista", "Motorista", 3500),
     Coluna("Documento", "Documento", 1800),
     Coluna("Data", "Data Validade", 1500),
     {"Dias", 1550, "Dias", kGridInteger, 4, 5, true, false, "", kDoSistema},
     Oculta("Codigo", "Codigo", 1550, kGridLong)},
    FaixasDeDias(),
    "Codigo",
    "Motoristas",
    "CarregaFicha"};

const ListaDeAlertas kAlertasDeAcessorios{
    "Alertas - Acessórios",
    &Construir<&Tools::RsAlertasAcess, &Tools::EncheAlertasAcess>,
    Estilos(kVermelho, kLaranja, kAmarelo),
    {Coluna("Matricula", "Matrícula", 3500), Coluna("Acessorio", "Acessório", 1800),
     Coluna("Marca", "Marca", 1800), Coluna("Data", "Data Validade", 1500),
     Oculta("Dias", "Dias", 1550, kGridInteger), Coluna("Notas", "Notas", 1500)},
    FaixasDeDias(),
    "Id",
    "Acessorios",
    "CarregaAcessorio"};

}  // namespace zorCrmParvel
