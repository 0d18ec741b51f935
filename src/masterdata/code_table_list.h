#pragma once

#include <memory>

#include "host/list_frame.h"
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

class VwLstCategorias : public CodeTableList {
 public:
  VwLstCategorias();
};

class VwLstCompanhias : public CodeTableList {
 public:
  VwLstCompanhias();
};

class VwLstDepartamentos : public CodeTableList {
 public:
  VwLstDepartamentos();
};

class VwLstMarcas : public CodeTableList {
 public:
  VwLstMarcas();
};

class VwLstModelos : public CodeTableList {
 public:
  VwLstModelos();
};

class VwLstTiposAcessorios : public CodeTableList {
 public:
  VwLstTiposAcessorios();
};

class VwLstTiposGastos : public CodeTableList {
 public:
  VwLstTiposGastos();
};

class VwLstTiposManut : public CodeTableList {
 public:
  VwLstTiposManut();
};

class VwLstTiposSeguro : public CodeTableList {
 public:
  VwLstTiposSeguro();
};

class VwLstViagens : public CodeTableList {
 public:
  VwLstViagens();
};

}  // namespace zorCrmParvel
