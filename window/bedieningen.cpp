#include "window/bedieningen.h"

namespace zw {

bool Bedieningen::aan(const std::string& naam) const {
    const auto it = staten_.find(naam);
    return it == staten_.end() || it->second.aan;
}

bool Bedieningen::vinkje(const std::string& naam) const {
    const auto it = staten_.find(naam);
    return it != staten_.end() && it->second.vinkje;
}

void Bedieningen::zetAan(const std::string& naam, bool aan) {
    zet(naam, &Staat::aan, aan);
}

void Bedieningen::zetVinkje(const std::string& naam, bool vinkje) {
    zet(naam, &Staat::vinkje, vinkje);
}

// Every redraw sets most states again to what they were: only a real change is passed on.
void Bedieningen::zet(const std::string& naam, bool Staat::*veld, bool waarde) {
    Staat& staat = staten_[naam];
    if (staat.*veld == waarde) {
        return;
    }
    staat.*veld = waarde;
    if (observer_) {
        observer_(naam);
    }
}

}  // namespace zw
