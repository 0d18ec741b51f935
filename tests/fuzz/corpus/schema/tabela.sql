CREATE TABLE [Tabela Um] (  -- comment
  Id int IDENTITY(1,1) NOT NULL,
  "Nome" nvarchar(max) NULL, Valor money, /* a /* nested */ one */
  CONSTRAINT PK_Um PRIMARY KEY (Id)
);
CREATE UNIQUE INDEX IX_Um ON [tabela um] (Valor, Id);
