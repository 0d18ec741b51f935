#include <array>

#include "demo/demo_parts.h"
#include "drivers/motoristas.h"
#include "platform/host.h"

namespace demo {
namespace {

using namespace zorCrmParvel;
using platform::Date;

constexpr int kDrivers = 60;

constexpr std::array kFirstNames = {
    "Ana",     "António",  "Beatriz", "Bruno",   "Carla",   "Carlos", "Catarina", "Daniel", "Diogo", "Duarte",
    "Elisa",   "Fernando", "Filipa",  "Gonçalo", "Helena",  "Hugo",   "Inês",     "João",   "Jorge", "José",
    "Leonor",  "Luís",     "Manuel",  "Maria",   "Mariana", "Miguel", "Nuno",     "Paulo",  "Pedro", "Raquel",
    "Ricardo", "Rita",     "Rui",     "Sandra",  "Sérgio",  "Sónia",  "Susana",   "Teresa", "Tiago", "Vasco"};
constexpr std::array kLastNames = {"Almeida", "Alves",     "Antunes",   "Araújo",   "Baptista", "Barbosa",
                                   "Cardoso", "Carvalho",  "Correia",   "Costa",    "Cunha",    "Dias",
                                   "Esteves", "Faria",     "Fernandes", "Ferreira", "Fonseca",  "Freitas",
                                   "Gomes",   "Gonçalves", "Leite",     "Lopes",    "Marques",  "Martins",
                                   "Matos",   "Mendes",    "Monteiro",  "Moreira",  "Nunes",    "Oliveira",
                                   "Pereira", "Pinto",     "Ramos",     "Ribeiro",  "Rocha",    "Rodrigues",
                                   "Santos",  "Silva",     "Sousa",     "Teixeira", "Vieira"};
constexpr std::array kStreets = {"Rua da Liberdade", "Rua de Santa Catarina", "Avenida da República",
                                 "Travessa do Sol",  "Largo do Carmo",        "Rua das Flores",
                                 "Rua 25 de Abril",  "Praceta da Paz"};

struct Town {
  const char* name;
  const char* postalPrefix;
};

constexpr std::array kTowns = {Town{"Lisboa", "1050"},  Town{"Porto", "4000"},    Town{"Braga", "4700"},
                               Town{"Coimbra", "3000"}, Town{"Aveiro", "3800"},   Town{"Leiria", "2400"},
                               Town{"Setúbal", "2900"}, Town{"Évora", "7000"},    Town{"Faro", "8000"},
                               Town{"Viseu", "3500"},   Town{"Santarém", "2000"}, Town{"Guimarães", "4800"}};

std::string Digits(DemoDice& dice, std::string text, std::size_t length) {
  while (text.size() < length) text += static_cast<char>('0' + dice.Roll(0, 9));
  return text;
}

/// Mostly years away; now and then so near that it asks for attention.
Date Expiry(DemoDice& dice, Date today) {
  return today.AddDays(dice.Roll(1, 12) == 1 ? dice.Roll(-20, 30) : dice.Roll(40, 3000));
}

void TakePapers(clMotoristas& motorista, DemoDice& dice, Date today) {
  motorista.CartaoCid = Digits(dice, "1", 8) + " 3ZX" + std::to_string(dice.Roll(0, 9));
  motorista.ValCartaoCid = Expiry(dice, today);
  motorista.DataCartaoCid = motorista.ValCartaoCid.AddMonths(-120);
  motorista.LocalCid = motorista.Localidade;
  motorista.CartaCond = Digits(dice, "P-", 9);
  motorista.ValCartaCond = Expiry(dice, today);
  motorista.DataCartaCond = motorista.DataNasc.AddMonths(12 * dice.Roll(18, 24));
  motorista.DGV = motorista.Localidade;
  if (dice.Roll(1, 3) != 1) return;  // a third drive with a tachograph
  motorista.TipoCartaCond = 7;
  motorista.NoCartaoCondutor = Digits(dice, "P", 14);
  motorista.EmissoraCartaoCondutor = "IMT";
  motorista.DtFimCartaoCondutor = Expiry(dice, today);
  motorista.DtInicioCartaoCondutor = motorista.DtFimCartaoCondutor.AddMonths(-60);
  motorista.DtDescarga = today.AddDays(dice.Roll(-3, 27));
}

/// The classes that the driver's licence names: light vehicles, and for lorries two more.
void WriteLicences(const clMotoristas& motorista) {
  RecordsetRef rows;
  motorista.bd->AbrirEdicao(
      {"SELECT Motorista, TipoCarta, DataValidade FROM zor_CartasCond WHERE Motorista = N'",
       value(motorista.Codigo), "'"},
      rows);
  Row row(*rows);
  for (const std::int16_t type : {std::int16_t{0}, std::int16_t{1}, std::int16_t{7}}) {
    if (type > 0 && motorista.TipoCartaCond != 7) break;
    rows->AddNew();
    row.put("Motorista", motorista.Codigo);
    row.put("TipoCarta", type);
    row.put("DataValidade", motorista.ValCartaCond);
    rows->Update();
  }
  rows->Close();
}

}  // namespace

std::vector<std::string> FillDemoDrivers(const DataAccessRef& bd, DemoDice& dice) {
  const Date today = platform::Today();
  std::vector<std::string> codes;
  for (int i = 1; i <= kDrivers; ++i) {
    clMotoristas motorista;
    motorista.bd = bd;
    motorista.Codigo = std::string(i < 10 ? "000" : "00") + std::to_string(i);
    const std::string first = dice.Pick(kFirstNames);
    const std::string last = dice.Pick(kLastNames);
    const Town& town = dice.Pick(kTowns);
    const std::string middle = dice.Pick(kLastNames);
    motorista.Descrição = first;
    motorista.Descrição += " " + middle;
    motorista.Descrição += " " + last;
    motorista.Morada = dice.Pick(kStreets);
    motorista.Morada += ", " + std::to_string(dice.Roll(1, 240));
    motorista.Localidade = town.name;
    motorista.CodPostal = town.postalPrefix;
    motorista.CodPostal += "-" + Digits(dice, "", 3);
    motorista.NIF = Digits(dice, "2", 9);
    motorista.DataNasc = today.AddDays(-dice.Roll(24 * 365, 62 * 365));
    motorista.Telefone = Digits(dice, "2", 9);
    motorista.Telemovel = Digits(dice, dice.Roll(0, 1) == 0 ? "91" : "96", 9);
    motorista.Email = "motorista" + motorista.Codigo + "@frota.example";
    motorista.Inactivo = dice.Roll(1, 15) == 1 ? 1 : 0;
    TakePapers(motorista, dice, today);
    motorista.Escrever();
    WriteLicences(motorista);
    codes.push_back(motorista.Codigo);
  }
  return codes;
}

}  // namespace demo
