#include "app/mREGISTRY.h"

#include "engine/RunTimeError.h"

namespace quillon {

void SaveRegistryString(StringStore& store, const std::string& key, const std::string& name,
                        const std::string& value) {
    try {
        store.write(key, name, value);
    } catch (const RunTimeError&) {
        // The next start is then a first run again; that says enough.
    }
}

std::string GetRegistryString(StringStore& store, const std::string& key, const std::string& name) {
    try {
        return store.read(key, name);
    } catch (const RunTimeError&) {
        return {};
    }
}

}  // namespace quillon
