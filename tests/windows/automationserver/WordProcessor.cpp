#include "WordProcessor.h"

#include "Application.h"
#include "Classes.h"

namespace {

class WordProcessor : public Application {
  public:
    WordProcessor(Journal& journal, int documents);

    int Documents = 0;
};

class DocumentsPart : public LateBound {
  public:
    DocumentsPart(WordProcessor& application, Journal& journal)
        : LateBound(journal, L"documents"), application_(application) {
        application_.AddRef();
        Member count;
        count.Name = L"Count";
        count.Get = [this](const Arguments&) { return Answer(Variant::Integer(application_.Documents)); };
        Add(std::move(count));
        AddMethod(L"Add", {}, [this](const Arguments&) { ++application_.Documents; });
    }
    ~DocumentsPart() override { application_.Release(); }

  private:
    WordProcessor& application_;
};

class SelectionPart : public LateBound {
  public:
    SelectionPart(WordProcessor& application, Journal& journal)
        : LateBound(journal, L"selection"), application_(application) {
        application_.AddRef();
        AddMethod(L"typetext", {L"Text"}, [this](const Arguments& arguments) {
            arguments[0].AsText();
            if (application_.Documents < 1)
                throw MemberFailure{4605, L"This command is not available because no document is open."};
        });
    }
    ~SelectionPart() override { application_.Release(); }

  private:
    WordProcessor& application_;
};

WordProcessor::WordProcessor(Journal& journal, int documents)
    : Application(journal, WordProcessorClass), Documents(documents) {
    AddObject(L"documents", [this] { return new DocumentsPart(*this, TheJournal()); });
    AddObject(L"selection", [this] { return new SelectionPart(*this, TheJournal()); });
}

} // namespace

Application* MakeWordProcessor(Journal& journal, int documents) { return new WordProcessor(journal, documents); }
