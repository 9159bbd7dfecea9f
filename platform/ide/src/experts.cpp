// Interface reference counting, the library expert registry and the host's tool services.
#include "ide/experts.h"

#include <algorithm>

#include "ide/designintf.h"
#include "registry_internal.h"
#include "rtl/classes.h"

namespace ide {

using namespace rtl;

JEX_DEFINE_ENUM(TExpertStyle)
JEX_DEFINE_ENUM(TExpertStateFlag)
JEX_DEFINE_SET(TExpertState, TExpertStateFlag)
JEX_DEFINE_ENUM(TIMenuFlag)
JEX_DEFINE_SET(TIMenuFlags, TIMenuFlag)

int TInterface::AddRef() {
    return ++FRefCount;
}

int TInterface::Release() {
    int n = --FRefCount;
    if (n == 0) delete this;
    return n;
}

// ---- Library experts -------------------------------------------------------------------------------------
namespace {
struct TExpertReg {
    TIExpert* Expert;
    TModuleHandle Module;
};
std::vector<TExpertReg>& Experts() {
    static std::vector<TExpertReg> e;
    return e;
}
} // namespace

void RegisterLibraryExpert(TIExpert* Expert) {
    if (!Expert) throw EInvalidOperation("A nil expert cannot be registered");
    std::string id = Expert->GetIDString();
    if (FindLibraryExpert(id)) {
        Expert->Release();
        throw EInvalidOperation(Format("An expert with the ID string \"%s\" is already registered", {id}));
    }
    Experts().push_back({Expert, CurrentModule()});
}

std::vector<TIExpert*> LibraryExperts() {
    std::vector<TIExpert*> out;
    for (auto& e : Experts())
        out.push_back(e.Expert);
    return out;
}

TIExpert* FindLibraryExpert(const std::string& IDString) {
    for (auto& e : Experts())
        if (e.Expert->GetIDString() == IDString) return e.Expert;
    return nullptr;
}

void detail::WithdrawExperts(TModuleHandle module) {
    // Last registered first, each taken out of the list before it is released so a destructor that
    // looks at the registry sees it gone.
    auto& list = Experts();
    for (size_t i = list.size(); i-- > 0;) {
        if (i >= list.size() || list[i].Module != module) continue;
        TIExpert* e = list[i].Expert;
        list.erase(list.begin() + static_cast<std::ptrdiff_t>(i));
        e->Release();
    }
}

} // namespace ide
