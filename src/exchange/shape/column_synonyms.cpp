#include "exchange/shape/column_synonyms.h"

namespace exchange {

const std::array<ColumnWords, 83> kColumnWords = {{
    // Events.
    {"", "Matricula", "Matrícula",
     "matricula|viatura|license plate|licence plate|registration|placa|immatriculation|plate|matricula "
     "viatura|"
     "matricula da viatura|vehicle registration|registration number|reg no|veiculo|vehicle|vehiculo|vehicule|"
     "plaque|carro|matr"},
    {"", "Data", "Data",
     "data hora|data e hora|data|date|fecha|date time|datetime|data transaccao|data transacao|transaction "
     "date|"
     "dt transaccao|dt transacao|dt movimento|data da transaccao|data movimento|data saida|exit date|fecha "
     "salida|start date|data documento|dia|day|"
     "date de transaction|end time|start time|timestamp"},
    {"", "Hora", "Hora",
     "hora|time|heure|hora transaccao|hora transacao|hora saida|exit time|transaction time"},
    {"", "TipoGasto", "Tipo de gasto",
     "tipo gasto|tipo de gasto|produto|product|producto|produit|descricao produto|product name|fuel type|"
     "combustivel|fuel|carburant|combustible|tipo|artigo|servico|service|descricao"},
    {"", "Motorista", "Motorista",
     "motorista|condutor|driver|conductor|chauffeur|conducteur|nome condutor|driver name|funcionario|"
     "colaborador|nome do condutor|codigo motorista"},
    {"", "Viagem", "Viagem", "viagem|trip|viaje|voyage"},
    {"", "Qtd", "Quantidade",
     "qtd|quantidade|litros|qty|quantity|liters|litres|quant|volume|cantidad|quantite|kwh|energia|energy|lts|"
     "vol|litro"},
    {"", "ValorUn", "Valor unitário",
     "valor unitario|preco unitario|unit price|precio unitario|prix unitaire|valor un|preco litro|preco l|"
     "price per litre|price per liter|ppl|preco|price|precio|preco kwh|pvp"},
    {"", "Custo", "Custo",
     "valor c iva|valor com iva|total c iva|total com iva|custo total|valor total|importe total|montant ttc|"
     "gross amount|total amount|custo|total|valor|amount|importe|montant|montante|cost|total eur|preco total|"
     "valor s iva|net amount|valor sem iva|total s iva|total cost|taxa|coste"},
    {"", "Km", "Quilómetros",
     "km|kms|quilometros|quilometragem|odometer|odometro|mileage|kilometros|kilometrage|conta quilometros|"
     "odometer reading|kilometraje|km actuais|km viatura|leitura"},
    {"", "Obs", "Observações",
     "obs|observacoes|posto|station|notas|notes|estacao|estacion|remarks|merchant|local|location|entrada|"
     "saida|"
     "entry|exit|site|lieu|observaciones|comentarios|portico|barreira|posto abastecimento|commentaire"},
    {"|multas|sinistros|revisoes|inspecoes|acessorios|viaturas|motoristas|", "Obs", "Observações",
     "obs|observacoes|notas|notes|remarks|observaciones|comentarios|descricao|description|commentaire|"
     "motivo"},
    // Policies.
    {"|apolices|", "Validade", "Validade",
     "validade|data fim|vencimento|data vencimento|expiry|expiry date|valid until|end "
     "date|vencimiento|echeance|"
     "fim|termo"},
    {"|apolices|", "Companhia", "Companhia",
     "companhia|seguradora|insurer|insurance company|aseguradora|assureur|company|companhia de seguros"},
    {"|apolices|", "TipoSeguro", "Tipo de seguro",
     "tipo seguro|tipo de seguro|ramo|insurance type|cover type|tipo|type"},
    {"|apolices|", "Apolice", "Apólice",
     "apolice|no apolice|n apolice|policy number|policy|poliza|police|numero apolice"},
    {"|apolices|", "Premio", "Prémio", "premio|premium|prima|prime|premio total|valor|custo|amount|importe"},
    {"|apolices|", "Franquia", "Franquia", "franquia|deductible|excess|franquicia|franchise"},
    {"|apolices|", "Modalidade", "Modalidade",
     "modalidade|periodicidade|fraccionamento|fracionamento|payment"},
    {"|apolices|", "DataInicio", "Data de início",
     "data inicio|data de inicio|inicio|start date|start|inicio vigencia"},
    {"|apolices|", "Coberturas", "Coberturas", "coberturas|cobertura|coverage|covers|garanties"},
    {"|apolices|viaturas|", "Inactiva", "Inactiva", "inactiva|inativa|inactive|abatida|anulada"},
    // The other events.
    {"|revisoes|", "TipoManut", "Tipo de manutenção",
     "tipo manutencao|tipo de manutencao|service type|intervencao|servico|operacao|trabalho|tipo|descricao"},
    {"|multas|", "ValorMulta", "Valor",
     "valor multa|valor|coima|fine|amount|montante|importe|montant|custo|total"},
    {"|multas|", "Responsabilidade", "Responsabilidade", "responsabilidade|responsavel|liability"},
    {"|sinistros|", "LocalAc", "Local", "local|local acidente|local do acidente|place|lugar|lieu|location"},
    {"|sinistros|", "Responsavel", "Responsável", "responsavel|culpado|at fault|responsabilidade|culpa"},
    {"|acessorios|", "TipoAcessorio", "Tipo de acessório",
     "tipo acessorio|tipo de acessorio|acessorio|accessory|artigo|tipo|descricao"},
    {"|acessorios|", "DataVal", "Validade", "validade|data validade|expiry|valid until"},
    {"|acessorios|", "KmFinal", "Km finais", "km final|km finais|end km"},
    // Vehicles.
    {"", "Marca", "Marca", "marca|make|brand|marque|fabricante"},
    {"", "Modelo", "Modelo", "modelo|model|modele|versao"},
    {"|viaturas|", "Responsavel", "Responsável",
     "responsavel|responsible|utilizador|user|responsable|condutor habitual|motorista|condutor|driver"},
    {"|viaturas|", "Categoria", "Categoria",
     "categoria|category|classe|tipo viatura|tipo de viatura|tipo de veiculo|vehicle "
     "type|tipo|type|segmento"},
    {"|viaturas|", "Departamento", "Departamento",
     "departamento|department|departement|seccao|centro de custo|cost center|cost "
     "centre|delegacao|area|dept"},
    {"", "KmInicial", "Km iniciais",
     "km inicial|km iniciais|initial km|km entrada|kilometraje inicial|km inicio"},
    {"|viaturas|", "KmActual", "Km actuais",
     "km actual|km atual|km actuais|km atuais|kms|km|quilometros|quilometragem|odometer|mileage|kilometros|"
     "kilometrage|current km"},
    {"|viaturas|", "DataKmInicial", "Data dos km iniciais", "data km inicial|data km|data dos km"},
    {"|viaturas|", "DataMatricula", "Data da matrícula",
     "data matricula|data da matricula|data de matricula|registration date|primeira matricula|"
     "first registration|fecha matriculacion|date immatriculation|data 1 matricula|data 1a matricula"},
    {"|viaturas|", "AnoMatricula", "Ano", "ano|ano matricula|ano da matricula|ano de matricula|year|annee"},
    {"|viaturas|", "NoMotor", "N.º do motor", "no motor|n motor|numero motor|engine number|motor"},
    {"|viaturas|", "Cilindrada", "Cilindrada", "cilindrada|engine size|cc|displacement|cylindree|cm3"},
    {"|viaturas|", "CompLeasing", "Companhia de leasing",
     "leasing|companhia leasing|locadora|leasing company|renting|empresa de renting|gestora"},
    {"|viaturas|", "NoContrato", "N.º do contrato",
     "no contrato|n contrato|contrato|contract number|contract"},
    {"|viaturas|", "ValContrato", "Validade do contrato",
     "validade contrato|fim contrato|fim do contrato|contract end|data fim contrato|fin contrato"},
    {"|viaturas|", "ValorInicial", "Valor inicial",
     "valor inicial|valor aquisicao|valor de aquisicao|preco compra|purchase price|valor de compra|preco"},
    {"|viaturas|", "ValorResidual", "Valor residual", "valor residual|residual value|valor final"},
    {"|viaturas|", "Mensalidade", "Mensalidade",
     "mensalidade|renda|renda mensal|monthly payment|cuota|loyer"},
    {"|viaturas|", "QtdInicial", "Quantidade inicial", "qtd inicial|quantidade inicial"},
    {"|viaturas|", "NoChassis", "N.º do chassis",
     "no chassis|n chassis|chassis|chassi|vin|numero de quadro|quadro|bastidor|numero chassis"},
    {"|viaturas|", "Combustivel", "Combustível",
     "combustivel|fuel|fuel type|carburant|combustible|tipo combustivel|tipo de combustivel|energia"},
    {"|viaturas|", "DataPrxRev", "Próxima revisão",
     "proxima revisao|data proxima revisao|next service|prox revisao|data revisao"},
    {"|viaturas|", "DataPrxInsp", "Próxima inspecção",
     "proxima inspeccao|proxima inspecao|data inspecao|data inspeccao|next inspection|prox inspecao|ipo|itv|"
     "inspecao|inspeccao|controle technique"},
    {"|viaturas|", "KmPrxRev", "Km da próxima revisão",
     "km proxima revisao|km prox revisao|next service km|km revisao"},
    {"|viaturas|", "Tacografo", "Tacógrafo", "tacografo|tachograph|tachygraphe"},
    {"|viaturas|motoristas|", "DtDescarga", "Data da descarga", "data descarga|descarga|download date"},
    {"|viaturas|", "DataSelo", "Data do selo", "data selo|selo|iuc|data iuc|road tax"},
    {"|viaturas|", "SeloPago", "Selo pago", "selo pago|iuc pago|tax paid"},
    // Drivers.
    {"|motoristas|", "Codigo", "Código",
     "codigo|cod|code|no funcionario|n funcionario|no mecanografico|numero|employee "
     "number|id|no|n|matricule"},
    {"|motoristas|", "Nome", "Nome",
     "nome|name|nombre|nom|nome completo|full name|motorista|condutor|driver"},
    {"|motoristas|", "Morada", "Morada", "morada|address|direccion|adresse|endereco"},
    {"|motoristas|", "Localidade", "Localidade", "localidade|city|town|ciudad|ville|cidade"},
    {"|motoristas|", "CodPostal", "Código postal",
     "codigo postal|cod postal|postcode|postal code|zip|code postal|cp"},
    {"|motoristas|", "NIF", "NIF", "nif|contribuinte|no contribuinte|tax number"},
    {"|motoristas|", "DataNasc", "Data de nascimento",
     "data nascimento|data de nascimento|birth date|date of birth|nascimento|fecha nacimiento|date de "
     "naissance"},
    {"|motoristas|", "BI", "BI", "bi|bilhete de identidade"},
    {"|motoristas|", "Telefone", "Telefone", "telefone|phone|telephone|telefono|tel|telf"},
    {"|motoristas|", "Telemovel", "Telemóvel", "telemovel|mobile|movil|cell|tlm|portable"},
    {"|motoristas|", "Email", "E-mail", "email|e mail|mail|correo|courriel"},
    {"|motoristas|", "CartaoCid", "Cartão de cidadão",
     "cartao cidadao|cartao de cidadao|no cc|cc|dni|id card"},
    {"|motoristas|", "ValCartaoCid", "Validade do cartão de cidadão", "validade cc|validade cartao cidadao"},
    {"|motoristas|", "CartaCond", "Carta de condução",
     "carta conducao|carta de conducao|no carta|driving licence|licence number|license "
     "number|permiso|permis|carta"},
    {"|motoristas|", "DataCartaCond", "Data da carta", "data carta|emissao carta|licence date"},
    {"|motoristas|", "ValCartaCond", "Validade da carta",
     "validade carta|validade da carta|validade carta conducao|licence expiry|license expiry"},
    {"|motoristas|", "TipoCartaCond", "Tipo de carta",
     "tipo carta|tipo de carta|categoria|licence class|classe"},
    {"|motoristas|", "NoCartaoCondutor", "Cartão de condutor",
     "cartao condutor|no cartao condutor|cartao de condutor|driver card|cartao tacografo"},
    {"|motoristas|", "Inactivo", "Inactivo", "inactivo|inativo|inactive"},
    // Code tables.
    {"", "Codigo", "Código", "codigo|cod|code|id|no|numero|abreviatura"},
    {"", "Nome", "Nome", "nome|descricao|name|designacao|description|nombre|nom|libelle|descripcion"},
    {"|tipos-gastos|", "Combustivel", "É combustível", "combustivel|fuel|e combustivel"},
    {"|tipos-gastos|", "CustoUnit", "Custo unitário", "custo unitario|custo unit|preco|price|preco unitario"},
    // Licence classes.
    {"|cartas|", "TipoCarta", "Classe",
     "tipo carta|categoria|classe|categorias|class|category|categories|classes|clase|carta"},
    {"|cartas|", "DataValidade", "Validade", "validade|data validade|expiry|valid until|data de validade"},
}};

}  // namespace exchange
