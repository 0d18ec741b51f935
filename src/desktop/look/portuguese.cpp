#include "desktop/look/portuguese.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <cstring>
#include <iterator>

namespace desktop {
namespace {

struct Text {
  const char* source;
  const char* portuguese;
};

constexpr Text kTexts[] = {
    // Menus of input fields.
    {"&Undo", "&Desfazer"},
    {"&Redo", "&Refazer"},
    {"Cu&t", "C&ortar"},
    {"&Copy", "&Copiar"},
    {"&Paste", "Co&lar"},
    {"Delete", "Apagar"},
    {"Select All", "Seleccionar tudo"},
    {"&Step up", "&Aumentar"},
    {"Step &down", "&Diminuir"},
    // Buttons.
    {"Cancel", "Cancelar"},
    {"&Cancel", "&Cancelar"},
    {"Close", "Fechar"},
    {"Save", "Guardar"},
    {"&Save", "&Guardar"},
    {"Open", "Abrir"},
    {"&Open", "&Abrir"},
    {"&Yes", "&Sim"},
    {"&No", "&Não"},
    {"&Print", "&Imprimir"},
    {"Show Details...", "&Pormenores"},
    {"Hide Details...", "Ocultar &pormenores"},
    // The file dialog.
    {"Look in:", "Procurar em:"},
    {"Directory:", "Pasta:"},
    {"File &name:", "&Nome do ficheiro:"},
    {"Files of type:", "Tipo de ficheiro:"},
    {"Back", "Recuar"},
    {"Forward", "Avançar"},
    {"Go back", "Recuar"},
    {"Go forward", "Avançar"},
    {"Parent Directory", "Pasta acima"},
    {"Go to the parent directory", "Ir para a pasta acima"},
    {"Create New Folder", "Criar pasta"},
    {"Create a New Folder", "Criar pasta"},
    {"List View", "Lista"},
    {"Change to list view mode", "Mostrar como lista"},
    {"Detail View", "Pormenores"},
    {"Change to detail view mode", "Mostrar pormenores"},
    {"Computer", "Computador"},
    {"Name", "Nome"},
    {"Size", "Tamanho"},
    {"Type", "Tipo"},
    {"Folder", "Pasta"},
    {"File", "Ficheiro"},
    {"%1 File", "Ficheiro %1"},
    {"Kind", "Tipo"},
    {"Date Modified", "Modificado em"},
    {"All Files (*)", "Todos os ficheiros (*)"},
    {"&Rename", "&Mudar o nome"},
    {"&Delete", "&Apagar"},
    {"Show &hidden files", "Mostrar ficheiros &ocultos"},
    {"&New Folder", "&Nova pasta"},
    {"New Folder", "Nova pasta"},
    {"%1 already exists.\nDo you want to replace it?", "%1 já existe.\nDeseja substituí-lo?"},
    {"%1\nFile not found.\nPlease verify the correct file name was given.",
     "%1\nO ficheiro não existe.\nVerifique o nome."},
    // The print dialog.
    {"Print", "Imprimir"},
    {"Printer", "Impressora"},
    {"&Name:", "&Nome:"},
    {"P&roperties", "P&ropriedades"},
    {"Location:", "Localização:"},
    {"Type:", "Tipo:"},
    {"Output &file:", "&Ficheiro:"},
    {"&Options >>", "&Opções >>"},
    {"&Options <<", "&Opções <<"},
    {"Print to File (PDF)", "Imprimir para ficheiro (PDF)"},
    {"Local file", "Ficheiro local"},
    {"Write PDF file", "Escrever ficheiro PDF"},
    {"Print range", "Páginas"},
    {"Print all", "Imprimir tudo"},
    {"Pages from", "Páginas de"},
    {"to", "a"},
    {"Current Page", "Página actual"},
    {"Selection", "Selecção"},
    {"Output Settings", "Saída"},
    {"Copies", "Cópias"},
    {"Copies:", "Cópias:"},
    {"Collate", "Agrupar"},
    {"Reverse", "Ordem inversa"},
    {"Options", "Opções"},
    {"Color Mode", "Cor"},
    {"Color", "A cores"},
    {"Grayscale", "Tons de cinzento"},
    {"Duplex Printing", "Frente e verso"},
    {"None", "Não"},
    {"Long side", "Pelo lado maior"},
    {"Short side", "Pelo lado menor"},
    {"Paper", "Papel"},
    {"Page size:", "Tamanho:"},
    {"Width:", "Largura:"},
    {"Height:", "Altura:"},
    {"Paper source:", "Origem:"},
    {"Orientation", "Orientação"},
    {"Portrait", "Ao alto"},
    {"Landscape", "Ao baixo"},
    {"Reverse landscape", "Ao baixo, invertida"},
    {"Reverse portrait", "Ao alto, invertida"},
    {"Margins", "Margens"},
};

}  // namespace

QString PortugueseTexts::translate(const char*, const char* source, const char*, int) const {
  for (const Text& text : kTexts)
    if (std::strcmp(text.source, source) == 0) return QString::fromUtf8(text.portuguese);
  return {};
}

void SpeakPortuguese() {
  // The last one is asked first.
  for (const char* name : {"qtbase_pt_BR", "qt_pt_PT"}) {
    auto* texts = new QTranslator(qApp);
    if (texts->load(QString::fromUtf8(name), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
      QCoreApplication::installTranslator(texts);
  }
  QCoreApplication::installTranslator(new PortugueseTexts(qApp));
}

}  // namespace desktop
