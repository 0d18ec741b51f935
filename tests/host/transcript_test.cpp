// Everything that fichas and lists show, ask, send and write, held against the texts of
// tests/host/transcripts.
#include <gtest/gtest.h>

#include "events/event_form.h"
#include "host/form_catalog.h"
#include "host/sistema.h"
#include "masterdata/code_table_form.h"
#include "support/screen.h"
#include "support/transcript.h"
#include "support/whole_text.h"

namespace zorCrmParvel {
namespace {

using testing_support::Transcript;

std::string File(const std::string& name) {
  return std::string(PARVEL_SOURCE_DIR) + "/tests/host/transcripts/" + name + ".txt";
}

class FichaTranscript : public testing::TestWithParam<const char*> {
 protected:
  std::unique_ptr<Ficha> New() const {
    auto form = FormCatalog::Shared().Make(GetParam());
    form->mybd = transcript.bd();
    form->Load();
    return form;
  }
  /// As it is opened from a vehicle, or from a list: with its key fixed.
  std::unique_ptr<Ficha> Fixed() const {
    auto form = FormCatalog::Shared().Make(GetParam());
    form->mybd = transcript.bd();
    auto* event = dynamic_cast<EventForm*>(form.get());
    if (event != nullptr) {
      form->Definir("TipoMostrar", std::int16_t{1});
      form->Definir("Matricula", "B");
      form->Definir("Seg_Id", 2);
    }
    form->Load();
    if (event == nullptr) form->Definir("Edicao", true);
    Show(*form);
    return form;
  }
  std::unique_ptr<Ficha> OnRecord() const {
    auto form = New();
    Show(*form);
    return form;
  }
  void Show(Ficha& form) const {
    if (auto* event = dynamic_cast<EventForm*>(&form))
      event->Carrega(2);
    else
      form.Chamar(std::string(GetParam()) == "Viaturas" ? "CarregaViatura" : "CarregaFicha", "B");
  }

  Sistema sistema;
  Transcript transcript;
};

TEST_P(FichaTranscript, IsAsWrittenDown) {
  using Acts = Transcript::Acts;
  transcript.Describe(*New());
  const auto filled = [&] {
    auto form = OnRecord();  // the key is left first: that reads its record
    form->UserGoesTo(testing_support::Find<platform::PushButton>(*form, "btConf"));
    testing_support::FillOut(*form);
    return form;
  };
  transcript.text += "= no registo B";
  transcript.DoEverything([&] { return OnRecord(); }, Acts::kAll);
  transcript.text += "= todo preenchido";
  transcript.DoEverything(filled, Acts::kButtons);
  const auto begun = [&] {
    auto form = New();
    auto& key = testing_support::Find<platform::zor_input>(*form, "Campo(0)");
    testing_support::Type(key, dynamic_cast<EventForm*>(form.get()) != nullptr ? "B" : "N");
    return form;
  };
  transcript.text += "= um novo, só com a chave";
  transcript.DoEverything(begun, Acts::kButtons);
  transcript.text += "= um novo";
  transcript.DoEverything([&] { return New(); }, Acts::kKeys);
  if (dynamic_cast<CodeTableForm*>(New().get()) == nullptr) {
    transcript.text += "= com a chave fixa";
    transcript.DoEverything([&] { return Fixed(); }, Acts::kKeys);
  }
  testing_support::ExpectWholeText(File(GetParam()), transcript.text);
}

INSTANTIATE_TEST_SUITE_P(All, FichaTranscript,
                         testing::Values("Viaturas", "Motoristas", "Multas", "Inspecoes", "Acessorios",
                                         "Sinistros", "Seguros", "Revisoes", "Gastos", "Categorias",
                                         "TiposGastos", "Modelos", "TiposManut", "TiposAcessorios",
                                         "Companhias", "TiposSeguro", "Viagens", "Marcas", "Departamentos"),
                         [](const auto& one) { return std::string(one.param); });

TEST(ListTranscript, IsAsWrittenDown) {
  Sistema sistema;
  Transcript transcript;
  for (const std::string& key : Sistema::ChavesDasListas()) {
    sistema.ICrmSistema_ZorDataAccess = transcript.bd();
    const auto list = sistema.MostraListas(key);
    transcript.text += "= " + key + " «" + list->ICrmVwList_Name() + "»\n";
    transcript.DoList(*list);
  }
  testing_support::ExpectWholeText(File("Listas"), transcript.text);
}

}  // namespace
}  // namespace zorCrmParvel
