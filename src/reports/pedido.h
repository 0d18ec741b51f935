#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "reports/frota.h"

namespace reports {

/// By what a report puts its rows together.
enum class Por { kViatura, kDepartamento, kCategoria, kMarca, kMotorista, kTipo };

/// What is asked of a report. Empty lists let everything through; codes are compared as the database does.
struct Pedido {
  Periodo periodo;
  Por por = Por::kViatura;
  Coluna coluna = Coluna::kMes;
  std::vector<std::string> viaturas, departamentos, categorias, marcas, motoristas;  // "": those without
  std::vector<int> combustiveis;
  bool soActivas = false;
  bool soInactivas = false;
  std::vector<std::string> tipos;  // kinds of cost, of movements alone
  // Of the costs.
  bool premiosRepartidos = true;
  bool comRendas = true;
  /// Asked now and then while a report computes; true ends it with `Cancelado`.
  std::function<bool()> cancelar;
};

/// Thrown when `Pedido::cancelar` says so.
struct Cancelado {};
void VerSeCancela(const Pedido& pedido);

/// A text as codes are compared by: without trailing blanks, case ignored.
std::string Dobrado(std::string_view texto);

/// Which vehicles and events a request lets through.
class Seleccao {
 public:
  Seleccao(const Frota& frota, const Pedido& pedido);
  bool Passa(std::size_t viatura) const { return viaturas_[viatura] != 0; }
  /// True when the vehicle passes, and the driver where drivers are asked for.
  bool Passa(const Evento& evento) const {
    return Passa(static_cast<std::size_t>(evento.viatura)) &&
           (motoristas_.empty() || motoristas_[static_cast<std::size_t>(evento.motorista) + 1] != 0);
  }
  bool PorMotorista() const { return !motoristas_.empty(); }

 private:
  std::vector<char> viaturas_;
  std::vector<char> motoristas_;  // the first for none; empty: all
};

/// The key of a vehicle's group by vehicle, department, category or make.
const std::string& GrupoDaViatura(const Viatura& viatura, Por por);
/// What a group is called; empty when nothing is known.
std::string NomeDoGrupo(const Frota& frota, Por por, const std::string& chave);

/// Rows by key, in the order of their first use.
class Chaves {
 public:
  std::size_t Linha(const std::string& chave);
  const std::vector<std::string>& todas() const { return chaves_; }

 private:
  std::unordered_map<std::string, std::size_t> lugar_;
  std::vector<std::string> chaves_;
};

/// Rows are shown by key, the one without a key at the end.
bool AntesNaOrdem(const std::string& a, const std::string& b);

}  // namespace reports
