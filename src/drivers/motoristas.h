#pragma once

#include <string>

#include "masterdata/code_table.h"
#include "masterdata/photo_record.h"

namespace zorCrmParvel {

/// A driver: one row of zor_Funcionarios, with the personal data of the personnel application in its place
/// when `LerSal` asks for them. Only the fleet's own table is ever written. Codes are walked, picked and
/// printed as a code table's; `Descrição` is the driver's name.
class clMotoristas : public CodeTableWithList, public RegistoComFoto {
 public:
  clMotoristas();

  std::string Morada;
  std::string Localidade;
  std::string CodPostal;
  std::string NIF;
  platform::Date DataNasc;
  std::string BI;
  platform::Date DataBI;
  std::string EmissaoBI;
  std::string Telefone;
  std::string Telemovel;
  std::string Email;
  std::string Passaporte;
  platform::Date DataPassa;
  platform::Date ValidadePassa;
  std::string CartaoCid;
  platform::Date DataCartaoCid;
  platform::Date ValCartaoCid;
  std::string CartaCond;
  platform::Date DataCartaCond;
  platform::Date ValCartaCond;
  std::int16_t TipoCartaCond = 0;
  std::string DGV;
  std::string LocalPassa;
  std::string Obs;
  std::string LocalCid;
  platform::Date DataValBI;
  platform::Date DtInicioCartaoCondutor;
  platform::Date DtFimCartaoCondutor;
  platform::Date DtDescarga;
  std::string NoCartaoCondutor;
  std::string EmissoraCartaoCondutor;
  std::int16_t Inactivo = 0;

  bool LeuPV = false;   // set by `Ler` on the personnel path: the fleet's row was found
  bool LerSal = false;  // read personal data through `bdSal`
  DataAccessRef bdSal;

  /// False when the code is unknown to the table that decides: the personnel's with `LerSal`, else the
  /// fleet's. Error 94 on a null in a column that needs a value.
  bool Ler() override;
  /// Removes the driver and the licence classes. False when the database refused either.
  bool Anular() override;
  bool Foto_Add(const std::string& ficheiro) override;
  bool Foto_Del() override;
  std::string Foto_Get() override;
  /// All drivers, in no order. The caller closes the rows.
  RecordsetRef LerMotoristas();

 protected:
  Statement Seleccao() const override;
  void EscreverCampos(Row& row) const override;

 private:
  Statement Leitura() const;
  bool LerDaFrota();
  bool LerDoPessoal();
  void LerCampos(const Row& row);
  void LerDadosPessoais(const Row& row);
  void LerDadosDaFrota(const Row& row);
  void LerCartaoCondutor(const Row& row);
};

}  // namespace zorCrmParvel
