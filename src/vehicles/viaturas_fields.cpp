#include "vehicles/viaturas_fields.h"

#include <algorithm>

namespace zorCrmParvel {
namespace {

using Texto = std::string clViaturas::*;
using Numero = platform::Currency clViaturas::*;

constexpr CampoDaViatura Escrito(const char* legenda, int maxlength, Texto propriedade) {
  return {legenda, maxlength, Escrita::kTexto, true, propriedade, nullptr};
}
constexpr CampoDaViatura Numerico(const char* legenda, int maxlength, Escrita escrita, Numero propriedade) {
  return {legenda, maxlength, escrita, true, nullptr, propriedade};
}
/// A figure that the events compute.
constexpr CampoDaViatura Calculado(const char* legenda, Escrita escrita, Numero propriedade) {
  return {legenda, 10, escrita, false, nullptr, propriedade};
}
constexpr CampoDaViatura Detalhe(const char* legenda, Escrita escrita = Escrita::kTexto) {
  return {legenda, 0, escrita, false, nullptr, nullptr};
}
/// The key of the event that a tab shows, kept out of sight.
constexpr CampoDaViatura Chave() { return {nullptr, 0, Escrita::kTexto, false, nullptr, nullptr}; }

template <typename T>
std::unique_ptr<CodeTable> Nova() {
  return std::make_unique<T>();
}

}  // namespace

const std::array<CampoDaViatura, 63> kCamposDaViatura = {{
    /* 0 */ {"Matrícula", 10, Escrita::kTexto, true, nullptr, nullptr},
    /* 1 */ Escrito("Marca", 10, &clViaturas::Marca),
    /* 2 */ Escrito("No.Contrato", 20, &clViaturas::NoContrato),
    /* 3 */ Numerico("Km Iniciais", 10, Escrita::kKm, &clViaturas::KmInicial),
    /* 4 */ Calculado("Custo Total", Escrita::kValor, &clViaturas::CustoTotal),
    /* 5 */ Calculado("Custo Médio Km (Total)", Escrita::kValor, &clViaturas::CustoMedioKmT),
    /* 6 */ Calculado("Custo Médio Km (Combustível)", Escrita::kValor, &clViaturas::CustoMedioKmC),
    /* 7 */ Calculado("Média (100Km)", Escrita::kValor, &clViaturas::Media),
    /* 8 */ Calculado("Km Actuais", Escrita::kKm, &clViaturas::KmActual),
    /* 9 */ {"Sector", 10, Escrita::kTexto, true, nullptr, nullptr},  // no column holds it
    /* 10 */ Escrito("Departamento", 10, &clViaturas::Departamento),
    /* 11 */ {"Responsável", 40, Escrita::kTexto, true, nullptr, nullptr},
    /* 12 */ Escrito("Modelo", 10, &clViaturas::Modelo),
    /* 13 */ Escrito("Categoria", 10, &clViaturas::Categoria),
    /* 14 */ Escrito("Cilindrada", 10, &clViaturas::Cilindrada),
    /* 15 */ Detalhe("Apólice"),
    /* 16 */ {"Obs.", 150, Escrita::kNotas, true, &clViaturas::Obs, nullptr},
    /* 17 */ Escrito("No.Motor", 15, &clViaturas::NoMotor),
    /* 18 */ Detalhe("Marca"),
    /* 19 */ Numerico("Valor Inicial", 12, Escrita::kValor, &clViaturas::ValorInicial),
    /* 20 */ Escrito("Companhia", 10, &clViaturas::CompLeasing),
    /* 21 */ Numerico("Valor Residual", 12, Escrita::kValor, &clViaturas::ValorResidual),
    /* 22 */ Numerico("Mensalidade", 12, Escrita::kValor, &clViaturas::Mensalidade),
    /* 23 */ Numerico("Qtd. Inicial", 10, Escrita::kValor, &clViaturas::QtdInicial),
    /* 24 */ {"Ano Matrícula", 4, Escrita::kAno, true, nullptr, nullptr},
    /* 25 */ Detalhe("Companhia"),
    /* 26 */ Detalhe("Tipo Apólice"),
    /* 27 */ Detalhe("Prémio", Escrita::kValor),
    /* 28 */ Detalhe("Franquia", Escrita::kValor),
    /* 29 */ Detalhe("Modelo"),
    /* 30 */ Detalhe("Tipo Acessório"),
    /* 31 */ Detalhe("Qtd.", Escrita::kValor),
    /* 32 */ Detalhe("Km Iniciais", Escrita::kKm),
    /* 33 */ Detalhe("Km Finais", Escrita::kKm),
    /* 34 */ Detalhe("Custo", Escrita::kValor),
    /* 35 */ Detalhe("Observações", Escrita::kNotas),
    /* 36 */ Chave(),
    /* 37 */ Chave(),
    /* 38 */ Detalhe("Qtd.", Escrita::kValor),
    /* 39 */ Detalhe("Motorista"),
    /* 40 */ Detalhe("Custo", Escrita::kValor),
    /* 41 */ Chave(),
    /* 42 */ Detalhe("Observações", Escrita::kNotas),
    /* 43 */ Escrito("No.Quadro", 50, &clViaturas::NoChassis),
    /* 44 */ Detalhe("Tipo Gasto"),
    /* 45 */ Detalhe("Observações", Escrita::kNotas),
    /* 46 */ Detalhe("Km", Escrita::kKm),
    /* 47 */ Detalhe("Custo", Escrita::kValor),
    /* 48 */ Chave(),
    /* 49 */ Chave(),
    /* 50 */ Detalhe("Tipo Manutenção"),
    /* 51 */ Detalhe("Km", Escrita::kKm),
    /* 52 */ Detalhe("Custo", Escrita::kValor),
    /* 53 */ Numerico("Km Próxima Revisão", 10, Escrita::kKm, &clViaturas::KmPrxRev),
    /* 54 */ Detalhe("Observações", Escrita::kNotas),
    /* 55 */ Detalhe("Motorista"),
    /* 56 */ Chave(),
    /* 57 */ Detalhe("Local"),
    /* 58 */ Detalhe("Observações", Escrita::kNotas),
    /* 59 */ Detalhe("Motorista"),
    /* 60 */ Detalhe("Observações", Escrita::kNotas),
    /* 61 */ Chave(),
    /* 62 */ Detalhe("Valor", Escrita::kValor),
}};

const std::array<DataDaViatura, 14> kDatasDaViatura = {{
    /* 0 */ {.legenda = "Data ", .opcional = true},
    /* 1 */ {.legenda = "Data Inicial"},
    /* 2 */ {.legenda = "Data", .activo = false},
    /* 3 */ {.legenda = "Data Matrícula"},
    /* 4 */ {.legenda = "Data", .activo = false, .formato = "dd-mm-yyyy hh:mm"},
    /* 5 */ {.legenda = "Data Validade", .activo = false},
    /* 6 */ {.legenda = "Data", .activo = false},
    /* 7 */ {.legenda = "Data", .activo = false},
    /* 8 */ {.legenda = "Data Próxima Revisão", .opcional = true},
    /* 9 */ {.legenda = "Marcação  Próxima Inspecção", .opcional = true},
    /* 10 */ {.legenda = "Data", .activo = false},
    /* 11 */ {.legenda = "Data", .activo = false},
    /* 12 */ {.legenda = "Próxima Descarga", .opcional = true},
    /* 13 */ {.legenda = "Pagamento Selo até "},
}};

const std::array<CodigoDaViatura, 5> kCodigosDaViatura = {{
    {1, 13, &Nova<clMarcas>, "Marca não existente!", "Lista de Marcas.", "Marcas"},
    {10, 15, &Nova<clDepartamentos>, "Departamento não existente!", "Lista de Departamentos.",
     "Departamentos"},
    {12, 14, &Nova<clModelos>, "Modelo não existente!", "Lista de Modelos.", "Modelos"},
    {13, 27, &Nova<clCategorias>, "Categoria não existente!", "Lista de Categorias.", "Categorias"},
    {20, 34, &Nova<clCompanhias>, "Companhia não existente!", "Lista de Companhias.", nullptr, true},
}};

const CodigoDaViatura* CodigoDoCampo(int campo) {
  const auto found = std::find_if(kCodigosDaViatura.begin(), kCodigosDaViatura.end(),
                                  [=](const CodigoDaViatura& c) { return c.campo == campo; });
  return found == kCodigosDaViatura.end() ? nullptr : &*found;
}

}  // namespace zorCrmParvel
