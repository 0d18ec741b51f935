#include "desktop/shell/options.h"

namespace desktop {
namespace {

constexpr int kUsageError = 2;

constexpr char kHelp[] = R"(Gestão de frota, em janela.

Uso: parvel-desktop [opções] [FICHEIRO]

  --db FICHEIRO       Base de dados, em vez da habitual; é criada se não existir.
  --ligacao LIGAÇÃO   Servidor em vez de um ficheiro: ligação ODBC ou DSN, sem a senha.
  --senha-ficheiro F  Ficheiro, legível só por si, com a senha do servidor.
  --demo              Abre dados de demonstração, numa base de dados à parte.
  --lista CHAVE       Começa por esta lista, por exemplo Marcas, ou pela página Inicio.
  --retrato FICHEIRO  Pinta a janela num ficheiro PNG e sai; não precisa de ecrã.
  --ficha NOME        No retrato: com esta ficha aberta, vazia.
  --registo           No retrato: com a ficha do primeiro registo aberta.
  --separador N       No retrato: com este separador da ficha, a contar de 1.
  --escuro            Com as cores escuras, sejam quais forem as do sistema.
  --help              Mostra esta ajuda.
  --version           Mostra a versão.

Sem --db, a base de dados é a escolhida da última vez, ou parvel/frota.db na pasta
de dados do utilizador.
)";

Reply WrongCall(const QString& why) {
  return {why + QStringLiteral(" Veja parvel-desktop --help.\n"), kUsageError};
}

}  // namespace

std::optional<Reply> ReadOptions(const QStringList& words, Options& options) {
  struct Flag {
    const char* name;
    bool* value;
  };
  struct Text {
    const char* name;
    QString* value;
  };
  const Flag flags[] = {{"--demo", &options.demo},
                        {"--registo", &options.first_record},
                        {"--escuro", &options.dark},
                        {"--arranque", &options.until_painted}};
  const Text texts[] = {{"--db", &options.database},
                        {"--ligacao", &options.connection},
                        {"--senha-ficheiro", &options.password_file},
                        {"--lista", &options.list},
                        {"--retrato", &options.picture},
                        {"--ficha", &options.ficha},
                        {"--separador", &options.tab}};

  for (qsizetype i = 0; i < words.size(); ++i) {
    const QString& word = words[i];
    if (word == QLatin1String("--help") || word == QLatin1String("-h"))
      return Reply{QString::fromUtf8(kHelp)};
    if (word == QLatin1String("--version"))
      return Reply{QStringLiteral("parvel-desktop " PARVEL_VERSION "\n")};
    bool known = false;
    for (const Flag& flag : flags)
      if (word == QLatin1String(flag.name)) known = *flag.value = true;
    for (const Text& text : texts) {
      if (word != QLatin1String(text.name)) continue;
      if (i + 1 == words.size() || words[i + 1].isEmpty())
        return WrongCall(QStringLiteral("Falta o valor de %1.").arg(word));
      *text.value = words[++i];
      known = true;
    }
    if (!known && !word.isEmpty() && !word.startsWith(QLatin1Char('-'))) {
      options.database = word;
      known = true;
    }
    if (!known) return WrongCall(QStringLiteral("Não se conhece a opção %1.").arg(word));
  }
  return {};
}

}  // namespace desktop
