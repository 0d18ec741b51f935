#include "events/event_tables.h"

namespace zorCrmParvel {

const TabelaDeEventos kTabelaDeGastos{
    .tabela = "zor_PV_Gastos",
    .id = "Gst_Id",
    .data = "Data",
    .tituloLista = "Gastos",
    .sqlLista =
        " SELECT zor_PV_Gastos.Gst_Id as ' ',zor_PV_Gastos.Matricula AS Matrícula, "
        "zor_PV_Gastos.Data AS Data, zor_Funcionarios.Nome as Motorista "
        "FROM zor_PV_Gastos "
        "INNER JOIN zor_Funcionarios ON zor_PV_Gastos.Motorista = zor_Funcionarios.Codigo",
    .listaPorViatura = true,
    .larguraLista = 5000,
    .colunasLista = {1000, 1000, 1000, 2500},
};

const TabelaDeEventos kTabelaDeSeguros{
    .tabela = "zor_PV_Seguros",
    .id = "Seg_Id",
    .data = "Validade",
    .tituloLista = "Seguros",
    .sqlLista =
        " SELECT  zor_PV_Seguros.Seg_Id as ' ',zor_PV_Seguros.Matricula AS Matrícula, "
        "zor_PV_TiposSeguro.Nome AS 'Tipo Seguro', zor_PV_Seguros.Apolice AS 'Apólice' "
        "FROM zor_PV_Seguros "
        "INNER JOIN zor_PV_TiposSeguro ON zor_PV_Seguros.TipoSeguro = zor_PV_TiposSeguro.Codigo",
    .listaPorViatura = true,
    .larguraLista = 6000,
    .colunasLista = {1000, 1000, 3000, 1500},
    .tituloMapa = "Listagem de Seguros",
    .sqlMapa = "SELECT Codigo AS Código AS Nome FROM zor_PV_Seguros order by Codigo",
};

const TabelaDeEventos kTabelaDeRevisoes{
    .tabela = "zor_PV_Revisoes",
    .id = "Manu_Id",
    .data = "Data",
    .tituloLista = "Revisões",
    .sqlLista =
        " SELECT zor_PV_Revisoes.Manu_Id as ' ',zor_PV_Revisoes.Matricula AS Matrícula, "
        "zor_PV_TiposManut.Nome AS 'Tipo Revisão',Data as Data  "
        "FROM zor_PV_Revisoes "
        "INNER JOIN zor_PV_TiposManut ON zor_PV_Revisoes.TipoManut = zor_PV_TiposManut.Codigo",
    .listaPorViatura = true,
    .larguraLista = 5000,
    .colunasLista = {1000, 1000, 2000, 1500},
    .tituloMapa = "Listagem de Revisões",
    .sqlMapa = "SELECT Matricula AS Matrícula AS Nome FROM zor_PV_Revisoes order by Codigo",
};

const TabelaDeEventos kTabelaDeInspecoes{
    .tabela = "zor_PV_Inspecoes",
    .id = "Insp_Id",
    .data = "Data",
    .tituloLista = "Inspecções",
    .sqlLista =
        " SELECT zor_PV_Inspecoes.Insp_Id as ' ',zor_PV_Inspecoes.Matricula AS Matrícula,"
        "zor_PV_Inspecoes.Data AS Data  "
        "FROM zor_PV_Inspecoes",
    .listaPorViatura = true,
    .larguraLista = 2900,
    .colunasLista = {1000, 1200, 1200},
    .tituloMapa = "Listagem de Inspecções",
    .sqlMapa = "SELECT Matricula AS Matrícula AS Nome FROM zor_PV_Inspecoes order by Codigo",
    .fimDoUltimo = " ",
};

const TabelaDeEventos kTabelaDeAcessorios{
    .tabela = "zor_PV_Acessorios",
    .id = "Id",
    .data = "Data",
    .tituloLista = "Acessórios",
    .sqlLista =
        " SELECT zor_PV_Acessorios.Id as ' ',zor_PV_Acessorios.Matricula AS Matrícula, "
        "zor_PV_TiposAcessorios.Nome AS 'Tipo Acessório', zor_PV_Acessorios.Marca "
        "FROM zor_PV_Acessorios "
        "INNER JOIN zor_PV_TiposAcessorios ON zor_PV_Acessorios.TipoAcessorio = "
        "zor_PV_TiposAcessorios.Codigo",
    .listaPorViatura = true,
    .larguraLista = 5000,
    .colunasLista = {1000, 1000, 1000, 2500},
    .tituloMapa = "Listagem de Acessórios",
    .sqlMapa = "SELECT Matricula AS Matrícula AS Nome FROM zor_PV_Acessorios order by Codigo",
};

const TabelaDeEventos kTabelaDeMultas{
    .tabela = "zor_PV_Multas",
    .id = "Id",
    .data = "Data",
    .tituloLista = "Multas",
    .sqlLista =
        "SELECT id as ' ',Matricula as Matrícula,Data as Data, ValorMulta as Multa "
        "From zor_PV_Multas "
        "ORDER BY Matricula",
    .listaPorViatura = false,
    .larguraLista = 4500,
    .colunasLista = {1000, 1000, 1500, 1500},
    .tituloMapa = "Listagem de Multas",
    .sqlMapa = "SELECT Codigo AS Código AS Nome FROM zor_PV_Multas order by Codigo",
};

const TabelaDeEventos kTabelaDeSinistros{
    .tabela = "zor_PV_Sinistros",
    .id = "Id",
    .data = "Data",
    .tituloLista = "Sinistros",
    .sqlLista =
        " SELECT zor_PV_Sinistros.Id as ' ', zor_PV_Sinistros.Matricula AS Matrícula, "
        "zor_Funcionarios.Nome AS Motorista, zor_PV_Sinistros.Data as Data "
        "FROM         zor_PV_Sinistros "
        "INNER JOIN zor_Funcionarios ON zor_PV_Sinistros.Motorista = zor_Funcionarios.Codigo "
        "order by Matricula",
    .listaPorViatura = false,
    .larguraLista = 5500,
    .colunasLista = {1000, 3000, 1000},
    .tituloMapa = "Listagem de Sinistros",
    .sqlMapa = "SELECT Codigo AS Código AS Nome FROM zor_PV_Sinistros order by Codigo",
};

}  // namespace zorCrmParvel
