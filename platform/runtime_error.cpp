#include "platform/runtime_error.h"

namespace zw {

namespace {

struct ErrorText {
    int number;
    const char* text;
};

// The texts of the Dutch edition of the classic run time.
constexpr ErrorText kTexts[] = {
    {3, "Return zonder GoSub"},
    {5, "Ongeldige procedure-aanroep of ongeldig argument"},
    {6, "Overloop"},
    {7, "Onvoldoende geheugen"},
    {9, "Het subscript valt buiten het bereik"},
    {10, "Deze matrix heeft een vaste grootte of is tijdelijk vergrendeld"},
    {11, "Deling door nul"},
    {13, "Typen komen niet met elkaar overeen"},
    {14, "Onvoldoende ruimte voor tekenreeksen"},
    {28, "Onvoldoende stackruimte"},
    {51, "Interne fout"},
    {52, "Ongeldige bestandsnaam of ongeldig bestandsnummer"},
    {53, "Kan bestand niet vinden"},
    {54, "Ongeldige bestandsmodus"},
    {55, "Bestand is al geopend"},
    {57, "I/O-fout bij apparaat"},
    {58, "Bestand bestaat al"},
    {61, "Schijf is vol"},
    {62, "Invoer na einde van bestand"},
    {63, "Ongeldig recordnummer"},
    {67, "Te veel bestanden"},
    {68, "Apparaat is niet beschikbaar"},
    {70, "Toegang geweigerd"},
    {71, "Schijf is niet gereed"},
    {75, "Fout bij toegang tot pad/bestand"},
    {76, "Kan pad niet vinden"},
    {91, "Objectvariabele of blokvariabele With is niet ingesteld"},
    {94, "Ongeldig gebruik van Null"},
    {380, "Ongeldige eigenschapswaarde"},
};

}  // namespace

std::string standardErrorText(int number) {
    for (const auto& entry : kTexts) {
        if (entry.number == number) {
            return entry.text;
        }
    }
    return "Door de toepassing gedefinieerde of door het object gedefinieerde fout";
}

RuntimeError::RuntimeError(int number)
    : std::runtime_error(standardErrorText(number)), number_(number), text_(what()) {}

std::string errorMessage(const RuntimeError& error) {
    return "Fout " + std::to_string(error.number()) + " tijdens uitvoering:\n\n" + error.text();
}

void raise(int number) {
    throw RuntimeError(number);
}

}  // namespace zw
