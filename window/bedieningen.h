// The enabled state and check mark (for a toolbar button: its pressed state) of the window's
// commands, by name. The window's handlers are the only ones to change them; whatever shows the
// commands (the editor's menus and toolbar) follows through the observer.
#pragma once

#include <functional>
#include <map>
#include <string>

namespace zw {

class Bedieningen {
  public:
    using Observer = std::function<void(const std::string& naam)>;

    // Every command starts enabled and without a mark, as the window was designed.
    bool aan(const std::string& naam) const;
    bool vinkje(const std::string& naam) const;
    void zetAan(const std::string& naam, bool aan);
    void zetVinkje(const std::string& naam, bool vinkje);

    // Called with the name of every command whose state changed.
    void setObserver(Observer observer) { observer_ = std::move(observer); }

  private:
    struct Staat {
        bool aan = true;
        bool vinkje = false;
    };
    void zet(const std::string& naam, bool Staat::*veld, bool waarde);

    std::map<std::string, Staat, std::less<>> staten_;
    Observer observer_;
};

}  // namespace zw
