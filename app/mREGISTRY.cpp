#include "app/mREGISTRY.h"

#include "engine/RunTimeError.h"

namespace quillon {

namespace {

template <class Write>
void withoutMessage(Write write) {
    try {
        write();
    } catch (const RunTimeError&) {
        // The next start is then a first run again; that says enough.
    }
}

}  // namespace

void SaveRegistryString(StringStore& store, const std::string& key, const std::string& name,
                        const std::string& value) {
    withoutMessage([&] { store.write(key, name, value); });
}

void SaveRegistryNumber(StringStore& store, const std::string& key, const std::string& name,
                        Long value) {
    withoutMessage([&] { store.writeNumber(key, name, value); });
}

std::string GetRegistryString(StringStore& store, const std::string& key, const std::string& name) {
    try {
        return store.read(key, name);
    } catch (const RunTimeError&) {
        return {};
    }
}

}  // namespace quillon
