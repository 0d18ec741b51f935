-- versão 4
--
-- The tables of the fleet module, for both engines: run by the embedded engine on a new file, by `parvel
-- esquema` on a server.
-- On a server the database needs a collation that ignores case and keeps accents.
--
-- Only keys are NOT NULL: rows come from other programs as well. There are no foreign keys, since a code may be
-- removed while it is in use. Text is as wide as its field on the screen. A plate has the 15 characters that the
-- order of the events looks at.

-- Code tables: what classifies vehicles and their events.
CREATE TABLE zor_PV_Categorias (
  Codigo nvarchar(10) NOT NULL,
  Nome nvarchar(50) NULL,
  CONSTRAINT PK_zor_PV_Categorias PRIMARY KEY (Codigo)
);

CREATE TABLE zor_PV_Companhias (
  Codigo nvarchar(10) NOT NULL,
  Nome nvarchar(50) NULL,
  CONSTRAINT PK_zor_PV_Companhias PRIMARY KEY (Codigo)
);

CREATE TABLE zor_PV_Departamentos (
  Codigo nvarchar(10) NOT NULL,
  Nome nvarchar(50) NULL,
  CONSTRAINT PK_zor_PV_Departamentos PRIMARY KEY (Codigo)
);

CREATE TABLE zor_PV_Marcas (
  Codigo nvarchar(10) NOT NULL,
  Nome nvarchar(50) NULL,
  CONSTRAINT PK_zor_PV_Marcas PRIMARY KEY (Codigo)
);

CREATE TABLE zor_PV_Modelos (
  Codigo nvarchar(10) NOT NULL,
  Nome nvarchar(50) NULL,
  CONSTRAINT PK_zor_PV_Modelos PRIMARY KEY (Codigo)
);

CREATE TABLE zor_PV_TiposAcessorios (
  Codigo nvarchar(10) NOT NULL,
  Nome nvarchar(50) NULL,
  CONSTRAINT PK_zor_PV_TiposAcessorios PRIMARY KEY (Codigo)
);

CREATE TABLE zor_PV_TiposManut (
  Codigo nvarchar(10) NOT NULL,
  Nome nvarchar(50) NULL,
  CONSTRAINT PK_zor_PV_TiposManut PRIMARY KEY (Codigo)
);

CREATE TABLE zor_PV_TiposSeguro (
  Codigo nvarchar(10) NOT NULL,
  Nome nvarchar(50) NULL,
  CONSTRAINT PK_zor_PV_TiposSeguro PRIMARY KEY (Codigo)
);

CREATE TABLE zor_PV_Viagens (
  Codigo nvarchar(10) NOT NULL,
  Nome nvarchar(50) NULL,
  CONSTRAINT PK_zor_PV_Viagens PRIMARY KEY (Codigo)
);

-- Combustivel: 1 when the type is a fuel, else 0.
CREATE TABLE zor_PV_TiposGastos (
  Codigo nvarchar(10) NOT NULL,
  Nome nvarchar(50) NULL,
  Combustivel smallint NULL,
  CustoUnit money NULL,
  CONSTRAINT PK_zor_PV_TiposGastos PRIMARY KEY (Codigo)
);

-- Vehicles. Combustivel: 0 Diesel, 1 Gasolina, 2 GPL, 3 Eléctrico. Inactiva, Tacografo: 1 or 0.
CREATE TABLE zor_PV_Viaturas (
  Matricula nvarchar(15) NOT NULL,
  Marca nvarchar(10) NULL,
  Modelo nvarchar(10) NULL,
  Responsavel nvarchar(40) NULL,
  Categoria nvarchar(10) NULL,
  Departamento nvarchar(10) NULL,
  KmInicial money NULL,
  KmActual money NULL,
  DataKmInicial datetime NULL,
  CustoMedioKmC money NULL,
  DataMatricula datetime NULL,
  AnoMatricula smallint NULL,
  NoMotor nvarchar(15) NULL,
  Cilindrada nvarchar(10) NULL,
  CompLeasing nvarchar(10) NULL,
  NoContrato nvarchar(20) NULL,
  ValContrato datetime NULL,
  ValorInicial money NULL,
  ValorResidual money NULL,
  Mensalidade money NULL,
  CustoMedioKmT money NULL,
  QtdInicial money NULL,
  CustoTotal money NULL,
  Obs nvarchar(150) NULL,
  Media money NULL,
  NoChassis nvarchar(50) NULL,
  Combustivel smallint NULL,
  DataPrxRev datetime NULL,
  DataPrxInsp datetime NULL,
  KmPrxRev money NULL,
  Inactiva smallint NULL,
  Tacografo smallint NULL,
  DtDescarga datetime NULL,
  DataSelo datetime NULL,
  SeloPago bit NULL,
  CONSTRAINT PK_zor_PV_Viaturas PRIMARY KEY (Matricula)
);

-- Drivers. Inactivo: 1 or 0.
CREATE TABLE zor_Funcionarios (
  Codigo nvarchar(10) NOT NULL,
  Nome nvarchar(60) NULL,
  Morada nvarchar(50) NULL,
  Localidade nvarchar(40) NULL,
  CodPostal nvarchar(8) NULL,
  NIF nvarchar(13) NULL,
  DataNasc datetime NULL,
  BI nvarchar(13) NULL,
  DataBI datetime NULL,
  EmissaoBI nvarchar(20) NULL,
  Telefone nvarchar(20) NULL,
  Telemovel nvarchar(20) NULL,
  Email nvarchar(50) NULL,
  Passaporte nvarchar(13) NULL,
  DataPassa datetime NULL,
  ValidadePassa datetime NULL,
  CartaoCid nvarchar(13) NULL,
  DataCartaoCid datetime NULL,
  ValCartaoCid datetime NULL,
  CartaCond nvarchar(13) NULL,
  DataCartaCond datetime NULL,
  ValCartaCond datetime NULL,
  TipoCartaCond smallint NULL,
  DGV nvarchar(20) NULL,
  LocalPassa nvarchar(20) NULL,
  Obs nvarchar(150) NULL,
  LocalCid nvarchar(20) NULL,
  DataValBI datetime NULL,
  DtInicioCartaoCondutor datetime NULL,
  DtFimCartaoCondutor datetime NULL,
  DtDescarga datetime NULL,
  NoCartaoCondutor nvarchar(16) NULL,
  EmissoraCartaoCondutor nvarchar(20) NULL,
  Inactivo smallint NULL,
  CONSTRAINT PK_zor_Funcionarios PRIMARY KEY (Codigo)
);

-- Licence classes of the drivers, TipoCarta from 0.
CREATE TABLE zor_CartasCond (
  Motorista nvarchar(10) NOT NULL,
  TipoCarta smallint NOT NULL,
  DataValidade datetime NULL,
  CONSTRAINT PK_zor_CartasCond PRIMARY KEY (Motorista, TipoCarta)
);

-- Events of the vehicles: each is walked by vehicle and date.
CREATE TABLE zor_PV_Gastos (
  Gst_Id int IDENTITY(1,1) NOT NULL,
  Matricula nvarchar(15) NULL,
  Motorista nvarchar(25) NULL,
  Obs nvarchar(150) NULL,
  Data datetime NULL,
  Viagem nvarchar(50) NULL,
  Qtd money NULL,
  Km money NULL,
  ValorUn money NULL,
  Custo money NULL,
  TipoGasto nvarchar(25) NULL,
  CONSTRAINT PK_zor_PV_Gastos PRIMARY KEY (Gst_Id)
);
CREATE INDEX IX_zor_PV_Gastos ON zor_PV_Gastos (Matricula, Data);

-- Modalidade: 0 Anual, 1 Semestral. Inactiva: 1 for a policy that is closed.
CREATE TABLE zor_PV_Seguros (
  Seg_Id int IDENTITY(1,1) NOT NULL,
  Matricula nvarchar(15) NULL,
  Companhia nvarchar(10) NULL,
  TipoSeguro nvarchar(10) NULL,
  Apolice nvarchar(15) NULL,
  Validade datetime NULL,
  Premio money NULL,
  Franquia money NULL,
  Modalidade smallint NULL,
  DataInicio datetime NULL,
  Inactiva smallint NULL,
  Coberturas nvarchar(200) NULL,
  CONSTRAINT PK_zor_PV_Seguros PRIMARY KEY (Seg_Id)
);
CREATE INDEX IX_zor_PV_Seguros ON zor_PV_Seguros (Matricula, Validade);

CREATE TABLE zor_PV_Revisoes (
  Manu_Id int IDENTITY(1,1) NOT NULL,
  Matricula nvarchar(15) NULL,
  TipoManut nvarchar(10) NULL,
  Obs nvarchar(150) NULL,
  Data datetime NULL,
  Km money NULL,
  Custo money NULL,
  CONSTRAINT PK_zor_PV_Revisoes PRIMARY KEY (Manu_Id)
);
CREATE INDEX IX_zor_PV_Revisoes ON zor_PV_Revisoes (Matricula, Data);

CREATE TABLE zor_PV_Inspecoes (
  Insp_Id int IDENTITY(1,1) NOT NULL,
  Matricula nvarchar(15) NULL,
  Obs nvarchar(150) NULL,
  Data datetime NULL,
  Km money NULL,
  Custo money NULL,
  CONSTRAINT PK_zor_PV_Inspecoes PRIMARY KEY (Insp_Id)
);
CREATE INDEX IX_zor_PV_Inspecoes ON zor_PV_Inspecoes (Matricula, Data);

-- Responsabilidade: 1 or 0.
CREATE TABLE zor_PV_Multas (
  Id int IDENTITY(1,1) NOT NULL,
  Matricula nvarchar(15) NULL,
  Motorista nvarchar(10) NULL,
  Obs nvarchar(150) NULL,
  Data datetime NULL,
  ValorMulta money NULL,
  Responsabilidade smallint NULL,
  CONSTRAINT PK_zor_PV_Multas PRIMARY KEY (Id)
);
CREATE INDEX IX_zor_PV_Multas ON zor_PV_Multas (Matricula, Data);

-- Responsavel: 1 or 0.
CREATE TABLE zor_PV_Sinistros (
  Id int IDENTITY(1,1) NOT NULL,
  Matricula nvarchar(15) NULL,
  Motorista nvarchar(10) NULL,
  Obs nvarchar(150) NULL,
  Data datetime NULL,
  LocalAc nvarchar(50) NULL,
  Responsavel smallint NULL,
  Custo money NULL,
  CONSTRAINT PK_zor_PV_Sinistros PRIMARY KEY (Id)
);
CREATE INDEX IX_zor_PV_Sinistros ON zor_PV_Sinistros (Matricula, Data);

CREATE TABLE zor_PV_Acessorios (
  Id int IDENTITY(1,1) NOT NULL,
  Matricula nvarchar(15) NULL,
  TipoAcessorio nvarchar(10) NULL,
  Obs nvarchar(150) NULL,
  Data datetime NULL,
  Marca nvarchar(25) NULL,
  Modelo nvarchar(25) NULL,
  KmInicial money NULL,
  KmFinal money NULL,
  Qtd money NULL,
  Custo money NULL,
  DataVal datetime NULL,
  CONSTRAINT PK_zor_PV_Acessorios PRIMARY KEY (Id)
);
CREATE INDEX IX_zor_PV_Acessorios ON zor_PV_Acessorios (Matricula, Data);

-- Photos of vehicles (type 30) and drivers (type 20), shared with other programs.
CREATE TABLE zor_Fotos (
  zor_Fotos_Entidade nvarchar(50) NOT NULL,
  zor_Fotos_TipoEntidade smallint NOT NULL,
  zor_Fotos_NumeroFoto smallint NULL,
  zor_Fotos_Imagem varbinary(max) NULL,
  CONSTRAINT PK_zor_Fotos PRIMARY KEY (zor_Fotos_Entidade, zor_Fotos_TipoEntidade)
);

-- Paths of files attached to a record.
CREATE TABLE zor_PV_Attach (
  Id int IDENTITY(1,1) NOT NULL,
  Codigo nvarchar(50) NULL,
  Fx nvarchar(1000) NULL,
  Tipo smallint NULL,
  CONSTRAINT PK_zor_PV_Attach PRIMARY KEY (Id)
);
CREATE INDEX IX_zor_PV_Attach ON zor_PV_Attach (Codigo, Tipo);

-- Documents kept in the database, shared with other programs.
CREATE TABLE zor_ArquivoDigital (
  zor_ArquivoDigital_Id int IDENTITY(1,1) NOT NULL,
  zor_ArquivoDigital_Entidade nvarchar(50) NULL,
  zor_ArquivoDigital_TipoEntidade smallint NULL,
  zor_ArquivoDigital_Documento varbinary(max) NULL,
  zor_ArquivoDigital_NomeFicheiro nvarchar(255) NULL,
  zor_ArquivoDigital_Titulo nvarchar(100) NULL,
  CONSTRAINT PK_zor_ArquivoDigital PRIMARY KEY (zor_ArquivoDigital_Id)
);
CREATE INDEX IX_zor_ArquivoDigital ON zor_ArquivoDigital (zor_ArquivoDigital_Entidade, zor_ArquivoDigital_TipoEntidade);

-- The personnel application's table, which is only read. It usually lives in a database of its own.
CREATE TABLE Func1 (
  Nfunc nvarchar(10) NOT NULL,
  Nome nvarchar(60) NULL,
  Morada nvarchar(50) NULL,
  Localid nvarchar(40) NULL,
  CdPostal nvarchar(8) NULL,
  NFiscal nvarchar(13) NULL,
  DtNasc datetime NULL,
  BI nvarchar(13) NULL,
  DtBI datetime NULL,
  Emissao nvarchar(20) NULL,
  Telefone nvarchar(20) NULL,
  Telemove nvarchar(20) NULL,
  Email nvarchar(50) NULL,
  Passpo nvarchar(13) NULL,
  NUMERO_CARTAO_CIDADAO nvarchar(13) NULL,
  CONSTRAINT PK_Func1 PRIMARY KEY (Nfunc)
);

-- How files of others become rows: profiles by their name, as JSON.
CREATE TABLE parvel_perfis (
  Nome nvarchar(60) NOT NULL,
  Tipo nvarchar(20) NULL,
  Perfil nvarchar(max) NULL,
  CONSTRAINT PK_parvel_perfis PRIMARY KEY (Nome)
);

-- The imports, and the rows that each stored. Soma: of the file's bytes; Anulada: when it was taken back.
CREATE TABLE parvel_importacoes (
  Numero int IDENTITY(1,1) NOT NULL,
  Momento datetime NULL,
  Quem nvarchar(60) NULL,
  Tipo nvarchar(20) NULL,
  Ficheiro nvarchar(255) NULL,
  Perfil nvarchar(60) NULL,
  Soma nvarchar(32) NULL,
  Linhas int NULL,
  Anulada datetime NULL,
  CONSTRAINT PK_parvel_importacoes PRIMARY KEY (Numero)
);

-- Chave: the row's key; Marca: of its values when it was stored; Transaccao: the sender's number.
CREATE TABLE parvel_importacoes_linhas (
  Importacao int NOT NULL,
  Ordem int NOT NULL,
  Linha int NULL,
  Tabela nvarchar(30) NULL,
  Chave nvarchar(30) NULL,
  Marca nvarchar(16) NULL,
  Transaccao nvarchar(60) NULL,
  CONSTRAINT PK_parvel_importacoes_linhas PRIMARY KEY (Importacao, Ordem)
);

-- The hosts' own tables, which the module never reads. A database without them works.

-- Figures over time: the unit of an expense type's quantities ("L", "kWh").
CREATE TABLE parvel_TiposGastos (
  TipoGasto nvarchar(10) NOT NULL,
  Unidade nvarchar(10) NULL,
  CONSTRAINT PK_parvel_TiposGastos PRIMARY KEY (TipoGasto)
);

-- What a vehicle's row lacks: what its tank holds, the day on which it went out of service, and its leasing: the
-- kilometres of the whole contract, from when they count, and what each beyond them costs.
CREATE TABLE parvel_Viaturas (
  Matricula nvarchar(15) NOT NULL,
  Deposito money NULL,
  ForaDeServico datetime NULL,
  LimiteKm money NULL,
  InicioLeasing datetime NULL,
  EurosKm money NULL,
  CONSTRAINT PK_parvel_Viaturas PRIMARY KEY (Matricula)
);

-- The expense types that a vehicle of a fuel (0 to 3, as in zor_PV_Viaturas) takes. A fuel without a row takes any.
CREATE TABLE parvel_TiposAceites (
  Combustivel smallint NOT NULL,
  TipoGasto nvarchar(10) NOT NULL,
  CONSTRAINT PK_parvel_TiposAceites PRIMARY KEY (Combustivel, TipoGasto)
);

-- The licence class (as in zor_CartasCond) that vehicles of a category need.
CREATE TABLE parvel_ClassesCategorias (
  Categoria nvarchar(10) NOT NULL,
  Classe smallint NULL,
  CONSTRAINT PK_parvel_ClassesCategorias PRIMARY KEY (Categoria)
);

-- kg of CO2 a unit of an expense type, from a day on.
CREATE TABLE parvel_FactoresCO2 (
  TipoGasto nvarchar(10) NOT NULL,
  Desde datetime NOT NULL,
  Kg money NULL,
  CONSTRAINT PK_parvel_FactoresCO2 PRIMARY KEY (TipoGasto, Desde)
);

-- How the rules on what is odd are set; one without a row is as it comes. Activa: 1 or 0.
CREATE TABLE parvel_Regras (
  Regra nvarchar(20) NOT NULL,
  Activa smallint NULL,
  Limiar money NULL,
  CONSTRAINT PK_parvel_Regras PRIMARY KEY (Regra)
);

-- What was found odd and has been looked at: the rule, the table of the event and its id.
CREATE TABLE parvel_Vistos (
  Regra nvarchar(20) NOT NULL,
  Tabela nvarchar(30) NOT NULL,
  Registo int NOT NULL,
  Nota nvarchar(200) NULL,
  Data datetime NULL,
  CONSTRAINT PK_parvel_Vistos PRIMARY KEY (Regra, Tabela, Registo)
);

-- What was written, and by whom: one row for each row of a table that a write touched, or for several of one
-- kind (Chave '*'). The first row of an act of the user tells of the act as well; the others name it in
-- Operacao. Antes, Depois: the values as JSON; Anula: the act that this one undid.
CREATE TABLE parvel_historico (
  Id int IDENTITY(1,1) NOT NULL,
  Operacao int NULL,
  Momento datetime NULL,
  Operador nvarchar(60) NULL,
  Posto nvarchar(60) NULL,
  Texto nvarchar(200) NULL,
  Registo nvarchar(60) NULL,
  Anula int NULL,
  Tabela nvarchar(60) NULL,
  Chave nvarchar(100) NULL,
  Linhas int NULL,
  Antes nvarchar(max) NULL,
  Depois nvarchar(max) NULL,
  CONSTRAINT PK_parvel_historico PRIMARY KEY (Id)
);
CREATE INDEX IX_parvel_historico_Operacao ON parvel_historico (Operacao);
CREATE INDEX IX_parvel_historico_Chave ON parvel_historico (Chave, Tabela);
CREATE INDEX IX_parvel_historico_Registo ON parvel_historico (Registo);
CREATE INDEX IX_parvel_historico_Anula ON parvel_historico (Anula);

-- The bytes of documents and photos that a write took away, once for each content.
CREATE TABLE parvel_conteudos (
  Resumo nvarchar(64) NOT NULL,
  Conteudo varbinary(max) NULL,
  CONSTRAINT PK_parvel_conteudos PRIMARY KEY (Resumo)
);

-- Empty: on a server, whoever writes locks it until all that belongs together is written.
CREATE TABLE parvel_vez (
  Nome nvarchar(10) NOT NULL,
  Vez int NULL,
  CONSTRAINT PK_parvel_vez PRIMARY KEY (Nome)
);

-- Who is told by mail what is due. Ambito: 'todos', 'departamento' or 'responsavel', whose code is in Codigo.
CREATE TABLE parvel_destinatarios (
  Email nvarchar(100) NOT NULL,
  Nome nvarchar(60) NULL,
  Ambito nvarchar(15) NULL,
  Codigo nvarchar(15) NULL,
  Relatorio smallint NULL,
  CONSTRAINT PK_parvel_destinatarios PRIMARY KEY (Email)
);

-- What each was told of: 1 that it comes near, 2 that it is past.
CREATE TABLE parvel_avisados (
  Email nvarchar(100) NOT NULL,
  Chave nvarchar(150) NOT NULL,
  Fase smallint NULL,
  Momento datetime NULL,
  CONSTRAINT PK_parvel_avisados PRIMARY KEY (Email, Chave)
);

-- The mail server, in one row named 'correio'.
CREATE TABLE parvel_correio (
  Nome nvarchar(10) NOT NULL,
  Servidor nvarchar(200) NULL,
  Remetente nvarchar(100) NULL,
  Utilizador nvarchar(100) NULL,
  Autoridade nvarchar(255) NULL,
  CONSTRAINT PK_parvel_correio PRIMARY KEY (Nome)
);

-- How lists are shown, under a name. Dono: whose view it is, empty for the office's; Vista: JSON.
CREATE TABLE parvel_vistas (
  Lista nvarchar(40) NOT NULL,
  Dono nvarchar(60) NOT NULL,
  Nome nvarchar(60) NOT NULL,
  Vista nvarchar(max) NULL,
  CONSTRAINT PK_parvel_vistas PRIMARY KEY (Lista, Dono, Nome)
);

-- What is due and has been dealt with, or put off until a day (Ate). Registo: what the alert is of, with its date.
CREATE TABLE parvel_tratados (
  Lista nvarchar(40) NOT NULL,
  Registo nvarchar(120) NOT NULL,
  Ate datetime NULL,
  Nota nvarchar(200) NULL,
  Quem nvarchar(60) NULL,
  Quando datetime NULL,
  CONSTRAINT PK_parvel_tratados PRIMARY KEY (Lista, Registo)
);

-- What an office has settled for all its operators: "historico" = "nao", "historico.anos" = "5".
CREATE TABLE parvel_opcoes (
  Nome nvarchar(40) NOT NULL,
  Valor nvarchar(200) NULL,
  CONSTRAINT PK_parvel_opcoes PRIMARY KEY (Nome)
);
