#pragma once

#include <memory>

#include "host/list_frame.h"
#include "host/member_of.h"
#include "masterdata/code_table.h"

namespace zorCrmParvel {

/// What tells one code-table list from another.
struct ListaDeCodigos {
  const char* titulo;  // also the head of the error source
  std::unique_ptr<CodeTable> (*entidade)();
  std::unique_ptr<Ficha> (*ficha)();
};

/// The list of a code table: codes and names in the database's order of codes.
class CodeTableList : public ListFrame {
 public:
  explicit CodeTableList(const ListaDeCodigos& lista) : lista_(lista) {}

  /// Removes a record. A refusal of the database shows nothing.
  void AnularRegisto(const std::string& codigo);

 protected:
  std::string Titulo() const override { return lista_.titulo; }
  RecordsetRef AbrirLinhas() override;
  const std::vector<ColunaDeLista>& Colunas() const override;
  const char* ColunaChave() const override { return "Codigo"; }
  std::unique_ptr<Ficha> FichaNova() override;
  std::unique_ptr<Ficha> FichaDe(const std::string& codigo, const GridRow& row) override;
  void Anular(const std::string& codigo, const GridRow& /*row*/) override { AnularRegisto(codigo); }

 private:
  const ListaDeCodigos& lista_;
};

extern const ListaDeCodigos kListaDeCategorias;
extern const ListaDeCodigos kListaDeCompanhias;
extern const ListaDeCodigos kListaDeDepartamentos;
extern const ListaDeCodigos kListaDeMarcas;
extern const ListaDeCodigos kListaDeModelos;
extern const ListaDeCodigos kListaDeTiposAcessorios;
extern const ListaDeCodigos kListaDeTiposGastos;
extern const ListaDeCodigos kListaDeTiposManut;
extern const ListaDeCodigos kListaDeTiposSeguro;
extern const ListaDeCodigos kListaDeViagens;

using VwLstCategorias = MemberOf<CodeTableList, kListaDeCategorias>;
using VwLstCompanhias = MemberOf<CodeTableList, kListaDeCompanhias>;
using VwLstDepartamentos = MemberOf<CodeTableList, kListaDeDepartamentos>;
using VwLstMarcas = MemberOf<CodeTableList, kListaDeMarcas>;
using VwLstModelos = MemberOf<CodeTableList, kListaDeModelos>;
using VwLstTiposAcessorios = MemberOf<CodeTableList, kListaDeTiposAcessorios>;
using VwLstTiposGastos = MemberOf<CodeTableList, kListaDeTiposGastos>;
using VwLstTiposManut = MemberOf<CodeTableList, kListaDeTiposManut>;
using VwLstTiposSeguro = MemberOf<CodeTableList, kListaDeTiposSeguro>;
using VwLstViagens = MemberOf<CodeTableList, kListaDeViagens>;

}  // namespace zorCrmParvel
