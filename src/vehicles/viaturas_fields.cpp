#include "vehicles/viaturas_fields.h"

#include <algorithm>

#include "platform/runtime_error.h"

namespace zorCrmParvel {
namespace {

using V = clViaturas;

constexpr CampoDaViatura Escrito(int indice, const char* legenda, int maxlength, std::string V::*texto) {
  return {.indice = indice, .legenda = legenda, .maxlength = maxlength, .texto = texto};
}
constexpr CampoDaViatura Numerico(int indice, const char* legenda, int maxlength, Escrita escrita,
                                  platform::Currency V::*numero) {
  return {.indice = indice, .legenda = legenda, .maxlength = maxlength, .escrita = escrita, .numero = numero};
}
constexpr CampoDaViatura Calculado(int indice, const char* legenda, Escrita escrita,
                                   platform::Currency V::*numero) {
  CampoDaViatura campo = Numerico(indice, legenda, 10, escrita, numero);
  campo.calculado = true;
  return campo;
}

template <typename Lugares>
auto& NoLugar(const Lugares& lugares, int indice) {
  const auto found =
      std::find_if(lugares.begin(), lugares.end(), [=](const auto& lugar) { return lugar.indice == indice; });
  if (found == lugares.end()) throw platform::RuntimeError(platform::kSubscriptOutOfRange);
  return *found;
}

}  // namespace

const std::array<CampoDaViatura, 25> kCamposDaViatura = {{
    {.indice = 0, .legenda = "Matrícula", .maxlength = 10},
    Escrito(1, "Marca", 10, &V::Marca),
    Escrito(2, "No.Contrato", 20, &V::NoContrato),
    Numerico(3, "Km Iniciais", 10, Escrita::kKm, &V::KmInicial),
    Calculado(4, "Custo Total", Escrita::kValor, &V::CustoTotal),
    Calculado(5, "Custo Médio Km (Total)", Escrita::kValor, &V::CustoMedioKmT),
    Calculado(6, "Custo Médio Km (Combustível)", Escrita::kValor, &V::CustoMedioKmC),
    Calculado(7, "Média (100Km)", Escrita::kValor, &V::Media),
    Calculado(8, "Km Actuais", Escrita::kKm, &V::KmActual),
    {.indice = 9, .legenda = "Sector", .maxlength = 10},  // no column holds it
    Escrito(10, "Departamento", 10, &V::Departamento),
    {.indice = 11, .legenda = "Responsável", .maxlength = 40},  // may be null
    Escrito(12, "Modelo", 10, &V::Modelo),
    Escrito(13, "Categoria", 10, &V::Categoria),
    Escrito(14, "Cilindrada", 10, &V::Cilindrada),
    {.indice = 16, .legenda = "Obs.", .maxlength = 150, .escrita = Escrita::kNotas, .texto = &V::Obs},
    Escrito(17, "No.Motor", 15, &V::NoMotor),
    Numerico(19, "Valor Inicial", 12, Escrita::kValor, &V::ValorInicial),
    Escrito(20, "Companhia", 10, &V::CompLeasing),
    Numerico(21, "Valor Residual", 12, Escrita::kValor, &V::ValorResidual),
    Numerico(22, "Mensalidade", 12, Escrita::kValor, &V::Mensalidade),
    Numerico(23, "Qtd. Inicial", 10, Escrita::kValor, &V::QtdInicial),
    {.indice = 24, .legenda = "Ano Matrícula", .maxlength = 4, .escrita = Escrita::kAno},
    Escrito(43, "No.Quadro", 50, &V::NoChassis),
    Numerico(53, "Km Próxima Revisão", 10, Escrita::kKm, &V::KmPrxRev),
}};

const std::array<DataDaViatura, 7> kDatasDaViatura = {{
    {0, "Data ", &V::ValContrato, true, true},
    {1, "Data Inicial", &V::DataKmInicial},
    {3, "Data Matrícula", &V::DataMatricula},
    {8, "Data Próxima Revisão", &V::DataPrxRev, true, true},
    {9, "Marcação  Próxima Inspecção", &V::DataPrxInsp, true, true},
    {12, "Próxima Descarga", &V::DtDescarga, true},
    {13, "Pagamento Selo até ", nullptr},  // `DataSelo`, which the ficha computes when there is none
}};

const std::vector<Referencia> kReferenciasDaViatura = {
    {1, 1, 13, "Lista de Marcas.", "Marcas", &NovaEntidade<clMarcas>, "Marca não existente!"},
    {10, 10, 15, "Lista de Departamentos.", "Departamentos", &NovaEntidade<clDepartamentos>,
     "Departamento não existente!"},
    {12, 12, 14, "Lista de Modelos.", "Modelos", &NovaEntidade<clModelos>, "Modelo não existente!"},
    {13, 13, 27, "Lista de Categorias.", "Categorias", &NovaEntidade<clCategorias>,
     "Categoria não existente!"},
    {20, 20, 34, "Lista de Companhias.", nullptr, &NovaEntidade<clCompanhias>, "Companhia não existente!",
     true},
};

const CampoDaViatura& CampoNoLugar(int indice) { return NoLugar(kCamposDaViatura, indice); }

const DataDaViatura& DataNoLugar(int indice) { return NoLugar(kDatasDaViatura, indice); }

}  // namespace zorCrmParvel
