#include "drivers/motoristas_fields.h"

namespace zorCrmParvel {

using M = clMotoristas;

const std::array<CampoDoMotorista, 20> kCamposDoMotorista = {{
    /* 0 */ {"Código", "Motorista.", 10, &M::Codigo},
    /* 1 */ {"Nome", "Nome do Motorista.", 60, &M::Descrição},
    /* 2 */ {"Obs.", "Obs.", 150, &M::Obs},
    /* 3 */ {"Morada", "Morada.", 50, &M::Morada},
    /* 4 */ {"E-mail", "e-mail.", 50, &M::Email},
    /* 5 */ {"Telemóvel", "Telemóvel.", 20, &M::Telemovel},
    /* 6 */ {"Telefone", "Telefone.", 20, &M::Telefone},
    /* 7 */ {"Código Postal", "Código Postal.", 8, &M::CodPostal},
    /* 8 */ {"Localidade", "Localidade.", 40, &M::Localidade},
    /* 9 */ {"BI", "BI.", 13, &M::BI},
    /* 10 */ {"Local Emissão", "Local Emissão do BI.", 20, &M::EmissaoBI},
    /* 11 */ {"Cartão Cidadão", "Cartão Cidadão.", 13, &M::CartaoCid},
    /* 12 */ {"Local Emissão", "Local Emissão.", 20, &M::LocalCid},
    /* 13 */ {"NIF", "NIF.", 13, &M::NIF},
    /* 14 */ {"DGV", "DGV responsável.", 20, &M::DGV},
    /* 15 */ {"Passaporte", "No. Passaporte.", 13, &M::Passaporte},
    /* 16 */ {"Local Emissão", "Local de Emissão.", 20, &M::LocalPassa},
    /* 17 */ {"Carta Condução", "No. Carta de Condução.", 13, &M::CartaCond},
    /* 18 */ {"No. Cartão", "No.cartão condutor.", 16, &M::NoCartaoCondutor},
    /* 19 */ {"Emissora", "Emissora do cartão condutor.", 20, &M::EmissoraCartaoCondutor},
}};

const std::array<DataDoMotorista, 11> kDatasDoMotorista = {{
    /* 0 */ {"Data Nascimento", "Data Nascimento.", &M::DataNasc},
    /* 1 */ {"Data Emissão", "Data Emissão BI.", &M::DataBI},
    // The picker that names the issue date holds the validity.
    /* 2 */ {"Data Emissão", "Data Emissão do Cartão Cidadão.", &M::ValCartaoCid},
    /* 3 */ {"Data Emissão", "Data de Emissão.", &M::DataCartaCond},
    /* 4 */ {"Validade", "Validade.", &M::ValCartaCond},
    /* 5 */ {"Data Emissão", "Data de Emissão.", &M::DataPassa, true},
    /* 6 */ {"Validade", "Validade.", &M::ValidadePassa, true},
    /* 7 */ {"Data Val.", "Data Emissão BI.", &M::DataValBI},
    /* 8 */ {"Data Início", "Data Início.", &M::DtInicioCartaoCondutor, true},
    /* 9 */ {"Data de Fim", "Data de Fim.", &M::DtFimCartaoCondutor, true},
    /* 10 */ {"Próxima Descarga", "Próxiima data de descarga.", &M::DtDescarga, true},
}};

}  // namespace zorCrmParvel
