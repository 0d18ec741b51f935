#include "exchange/table/markup_reader.h"

#include <libxml/HTMLparser.h>
#include <libxml/parser.h>

#include <cstring>

#include "exchange/table/limits.h"

namespace exchange {
namespace {

std::string_view View(const xmlChar* text) {
  return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

}  // namespace

std::string_view MarkupAttributes::Get(std::string_view name, std::string_view space) const {
  for (const MarkupAttribute& attribute : all)
    if (attribute.name == name && (space.empty() || attribute.space.find(space) != std::string_view::npos))
      return attribute.value;
  return {};
}

/// The library's parser with the functions that it calls; those are C, so no error passes through them.
struct MarkupReader::Library {
  MarkupHandler& handler;
  Kind kind;
  xmlParserCtxtPtr parser = nullptr;
  xmlSAXHandler calls{};
  MarkupAttributes attributes;
  std::exception_ptr failure;

  template <typename Call>
  static void Guarded(void* self, const Call& call) {
    auto& library = *static_cast<Library*>(self);
    if (library.failure) return;
    try {
      call(library);
    } catch (...) {
      library.failure = std::current_exception();
      xmlStopParser(library.parser);
    }
  }
  static void BeginXml(void* self, const xmlChar* name, const xmlChar*, const xmlChar*, int, const xmlChar**,
                       int count, int, const xmlChar** values) {
    Guarded(self, [&](Library& library) {
      library.attributes.all.clear();
      for (int i = 0; i < count; ++i, values += 5) {
        const auto length = static_cast<std::size_t>(values[4] - values[3]);
        library.attributes.all.push_back(
            {View(values[0]), View(values[2]), View(values[3]).substr(0, length)});
      }
      library.handler.Begin(View(name), library.attributes);
    });
  }
  static void EndXml(void* self, const xmlChar* name, const xmlChar*, const xmlChar*) {
    Guarded(self, [&](Library& library) { library.handler.End(View(name)); });
  }
  static void BeginHtml(void* self, const xmlChar* name, const xmlChar** values) {
    Guarded(self, [&](Library& library) {
      library.attributes.all.clear();
      for (; values != nullptr && values[0] != nullptr; values += 2)
        library.attributes.all.push_back({View(values[0]), {}, View(values[1])});
      library.handler.Begin(View(name), library.attributes);
    });
  }
  static void EndHtml(void* self, const xmlChar* name) {
    Guarded(self, [&](Library& library) { library.handler.End(View(name)); });
  }
  static void Text(void* self, const xmlChar* text, int length) {
    Guarded(self, [&](Library& library) {
      library.handler.Text({reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)});
    });
  }
  static void Silent(void*, xmlErrorPtr) {}
};

MarkupReader::MarkupReader(MarkupHandler& handler, Kind kind)
    : library_(new Library{.handler = handler, .kind = kind, .attributes = {}, .failure = {}}) {
  xmlSAXHandler& calls = library_->calls;
  calls.initialized = XML_SAX2_MAGIC;
  calls.startElementNs = Library::BeginXml;
  calls.endElementNs = Library::EndXml;
  calls.startElement = Library::BeginHtml;
  calls.endElement = Library::EndHtml;
  calls.characters = calls.ignorableWhitespace = calls.cdataBlock = Library::Text;
  calls.serror = Library::Silent;
  if (kind == Kind::kXml) {
    library_->parser = xmlCreatePushParserCtxt(&calls, library_.get(), nullptr, 0, nullptr);
  } else {
    library_->parser =
        htmlCreatePushParserCtxt(&calls, library_.get(), nullptr, 0, nullptr, XML_CHAR_ENCODING_UTF8);
    if (library_->parser != nullptr)
      htmlCtxtUseOptions(library_->parser, HTML_PARSE_IGNORE_ENC | HTML_PARSE_NONET);
  }
  if (library_->parser == nullptr) throw std::bad_alloc();
}

MarkupReader::~MarkupReader() {
  if (library_->kind == Kind::kXml) {
    if (library_->parser->myDoc != nullptr) xmlFreeDoc(library_->parser->myDoc);
    xmlFreeParserCtxt(library_->parser);
  } else {
    if (library_->parser->myDoc != nullptr) xmlFreeDoc(library_->parser->myDoc);
    htmlFreeParserCtxt(library_->parser);
  }
}

void MarkupReader::Feed(std::string_view piece) {
  Parse(piece.data(), static_cast<int>(piece.size()), false);
}

void MarkupReader::Finish() { Parse("", 0, true); }

void MarkupReader::Parse(const char* piece, int size, bool last) {
  if (library_->kind == Kind::kHtml) {
    htmlParseChunk(library_->parser, piece, size, last ? 1 : 0);
    if (library_->failure) std::rethrow_exception(library_->failure);
    return;
  }
  const int error = xmlParseChunk(library_->parser, piece, size, last ? 1 : 0);
  if (library_->failure) std::rethrow_exception(library_->failure);
  if (error != XML_ERR_OK && library_->parser->wellFormed == 0)
    throw BrokenFile("a sua parte de texto não está bem formada na linha " +
                     std::to_string(xmlSAX2GetLineNumber(library_->parser)));
}

}  // namespace exchange
