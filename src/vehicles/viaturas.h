#pragma once

#include <string>

#include "host/data_access.h"
#include "host/row.h"
#include "masterdata/photo_record.h"

namespace zorCrmParvel {

/// A vehicle: one row of zor_PV_Viaturas in memory. `bd` and `Matricula` are set before a call. The zero date
/// stands for no date. Between `Ler` and `Escrever` nothing guards against a second writer; a whole row is
/// always written, so whoever changes one property reads first.
class clViaturas : public RegistoComFoto {
 public:
  std::string Matricula;  // the plate, the key
  std::string Marca;
  std::string Modelo;
  platform::Variant Responsavel;  // a text, or null
  std::string Categoria;
  std::string Departamento;
  platform::Currency KmInicial;
  platform::Currency KmActual;
  platform::Date DataKmInicial;
  platform::Currency CustoMedioKmC;  // fuel cost per km
  platform::Date DataMatricula;
  std::int16_t AnoMatricula = 0;
  std::string NoMotor;
  std::string Cilindrada;
  std::string CompLeasing;
  std::string NoContrato;
  platform::Date ValContrato;
  platform::Currency ValorInicial;
  platform::Currency ValorResidual;
  platform::Currency Mensalidade;
  platform::Currency CustoMedioKmT;  // total cost per km
  platform::Currency QtdInicial;
  platform::Currency CustoTotal;
  std::string Obs;
  platform::Currency Media;  // consumption per 100 km
  std::string NoChassis;
  std::int16_t Combustivel = 0;  // 0 Diesel, 1 Gasolina, 2 GPL, 3 Eléctrico
  platform::Date DataPrxRev;
  platform::Date DataPrxInsp;
  platform::Currency KmPrxRev;
  std::int16_t Inactiva = 0;   // 1 out of service
  std::int16_t Tacografo = 0;  // 1 with a digital tachograph
  platform::Date DtDescarga;
  platform::Date DataSelo;
  bool SeloPago = false;
  DataAccessRef bd;

  /// False, and every property as it was, when the plate is unknown. Error 94 on a null in a column that
  /// needs a value.
  bool Ler();
  /// Inserts or updates the whole row but its plate; texts are cut to their columns. Always true.
  bool Escrever();
  /// Writes `KmActual`, `CustoMedioKmC` and `Media` alone. Error 3021 when the plate is unknown.
  bool EscreverMedia();
  /// Removes the vehicle and its events, in eight statements without a transaction. Always true.
  bool Anular();
  // Move the plate and nothing else; false when there is no further one.
  bool LerPrimeiro();
  bool LerAnterior();
  bool LerProximo();
  bool LerUltimo();
  /// All vehicles, in no order. The caller closes the rows.
  RecordsetRef LerViaturas();
  /// The plate that the user picks, empty when none. Vehicles with a lost make or model aren't offered.
  std::string MostraLista();
  bool Foto_Add(const std::string& ficheiro) override;
  bool Foto_Del() override;
  std::string Foto_Get() override;

 private:
  Statement Seleccao() const;
  bool Navegar(const Statement& statement);
  void LerCampos(const Row& row);
  void EscreverCampos(Row& row) const;
};

}  // namespace zorCrmParvel
