#include "reports/pedido.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <set>

namespace reports {
namespace {

bool TemAlgum(const std::set<std::string>& permitidos, const std::string& codigo) {
  return permitidos.empty() || permitidos.count(Dobrado(codigo)) != 0;
}

std::set<std::string> Dobrados(const std::vector<std::string>& codigos) {
  std::set<std::string> dobrados;
  for (const std::string& codigo : codigos) dobrados.insert(Dobrado(codigo));
  return dobrados;
}

}  // namespace

void VerSeCancela(const Pedido& pedido) {
  if (pedido.cancelar && pedido.cancelar()) throw Cancelado();
}

std::string Dobrado(std::string_view texto) {
  while (!texto.empty() && texto.back() == ' ') texto.remove_suffix(1);
  std::string dobrado(texto);
  bool ascii = true;
  for (char& c : dobrado) {
    ascii = ascii && static_cast<unsigned char>(c) < 128;
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  if (ascii) return dobrado;
  std::string saida;
  icu::UnicodeString::fromUTF8(dobrado).foldCase().toUTF8String(saida);
  return saida;
}

Seleccao::Seleccao(const Frota& frota, const Pedido& pedido) {
  const auto matriculas = Dobrados(pedido.viaturas);
  const auto departamentos = Dobrados(pedido.departamentos);
  const auto categorias = Dobrados(pedido.categorias);
  const auto marcas = Dobrados(pedido.marcas);
  const bool soExistentes = !departamentos.empty() || !categorias.empty() || !marcas.empty() ||
                            !pedido.combustiveis.empty() || pedido.soActivas || pedido.soInactivas;
  for (const Viatura& v : frota.viaturas) {
    const auto& c = pedido.combustiveis;
    const bool passa = (v.existe || !soExistentes) && TemAlgum(matriculas, v.matricula) &&
                       TemAlgum(departamentos, v.departamento) && TemAlgum(categorias, v.categoria) &&
                       TemAlgum(marcas, v.marca) && !(pedido.soActivas && v.inactiva) &&
                       !(pedido.soInactivas && !v.inactiva) &&
                       (c.empty() || std::find(c.begin(), c.end(), v.combustivel) != c.end());
    viaturas_.push_back(passa ? 1 : 0);
  }
  if (pedido.motoristas.empty()) return;
  const auto motoristas = Dobrados(pedido.motoristas);
  motoristas_.push_back(motoristas.count("") != 0 ? 1 : 0);
  for (const Motorista& motorista : frota.motoristas)
    motoristas_.push_back(motoristas.count(Dobrado(motorista.codigo)) != 0 ? 1 : 0);
}

const std::string& GrupoDaViatura(const Viatura& viatura, Por por) {
  switch (por) {
    case Por::kDepartamento:
      return viatura.departamento;
    case Por::kCategoria:
      return viatura.categoria;
    case Por::kMarca:
      return viatura.marca;
    default:
      return viatura.matricula;
  }
}

std::string NomeDoGrupo(const Frota& frota, Por por, const std::string& chave) {
  const auto em = [&chave](const Nomes& nomes) {
    const auto achado = nomes.find(chave);
    return achado == nomes.end() ? std::string() : achado->second;
  };
  switch (por) {
    case Por::kDepartamento:
      return em(frota.departamentos);
    case Por::kCategoria:
      return em(frota.categorias);
    case Por::kMarca:
      return em(frota.marcas);
    case Por::kMotorista:
      for (const Motorista& motorista : frota.motoristas)
        if (motorista.codigo == chave) return motorista.nome;
      return "";
    default:
      return "";
  }
}

std::size_t Chaves::Linha(const std::string& chave) {
  const auto [lugar, nova] = lugar_.try_emplace(chave, chaves_.size());
  if (nova) chaves_.push_back(chave);
  return lugar->second;
}

bool AntesNaOrdem(const std::string& a, const std::string& b) {
  if (a.empty() || b.empty()) return !a.empty() && b.empty();
  return a < b;
}

}  // namespace reports
