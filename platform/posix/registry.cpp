#include "platform/registry.h"

#include "platform/posix/HandleTable.h"
#include "platform/posix/KeptAnswers.h"
#include "platform/posix/StoredValues.h"
#include "platform/posix/userFolders.h"
#include "platform/posix/wideText.h"

#include <algorithm>
#include <utility>

namespace {

constexpr Database::Layout layout = {
    "preferences.db",
    "PRAGMA user_version = 1;"
    "CREATE TABLE key(id INTEGER PRIMARY KEY, folded TEXT NOT NULL UNIQUE, name TEXT NOT NULL);" KOLMA_VALUE_TABLE,
};

// A key by its path under the root, as it was first written: "Software\Kolma". The root's is empty.
struct Key {
    std::u16string path;
    REGSAM access;
};

HandleTable<Key, HKEY>& openKeys() { return handleTable<HandleKind::key, Key, HKEY>(); }

Database writeStore() { return Database::openForWriting(configurationFolder(), layout); }

std::shared_ptr<Key> keyOf(HKEY handle) {
    if (handle == HKEY_CURRENT_USER) return std::make_shared<Key>(Key{u"", KEY_ALL_ACCESS});
    return openKeys().get(handle);
}

// Separators at either end and doubled ones name nothing.
std::u16string subKeyPath(const Key& parent, LPCWSTR subKey) {
    std::u16string path = parent.path;
    std::u16string_view rest = subKey == nullptr ? u"" : subKey;
    while (!rest.empty()) {
        std::size_t end = std::min(rest.find(u'\\'), rest.size());
        if (end != 0) {
            if (!path.empty()) path += u'\\';
            path += rest.substr(0, end);
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return path;
}

std::optional<std::int64_t> findKey(const Database& database, const std::u16string& path) {
    std::string folded = narrowText(foldCase(path));
    Statement row = database.prepare("SELECT id FROM key WHERE folded = ?");
    if (!row.bind(folded).step()) return std::nullopt;
    return row.integer(0);
}

// What the store says of one value.
struct ValueAnswer {
    bool hasKey = false;
    std::optional<StoredValue> value;

    bool isSmall() const noexcept { return !value || value->data.size() <= 1024; }
};

// Never destroyed: keys are still read while the process ends.
KeptAnswers<ValueAnswer>& keptAnswers() {
    static auto* answers = new KeptAnswers<ValueAnswer>;
    return *answers;
}

ValueAnswer askFor(const std::u16string& path, std::u16string_view name) {
    std::string question = narrowText(foldCase(path)) + '\n' + narrowText(foldCase(name));
    auto answer = keptAnswers().ask(configurationFolder(), layout, question, [&](const Database& store) {
        auto id = findKey(store, path);
        return id ? ValueAnswer{true, findValue(store, *id, name)} : ValueAnswer();
    });
    return answer.value_or(ValueAnswer());
}

bool keyExists(const std::u16string& path) { return askFor(path, u"").hasKey || path.empty(); }

void addKey(const Database& database, const std::u16string& path) {
    std::string folded = narrowText(foldCase(path));
    std::string given = narrowText(path);
    database.prepare("INSERT OR IGNORE INTO key(folded, name) VALUES(?, ?)").bind(folded).bind(given).step();
}

// The key with its parents, made where they are missing.
std::int64_t makeKey(const Database& database, const std::u16string& path) {
    if (auto id = findKey(database, path)) return *id;
    for (std::size_t end = path.find(u'\\'); end != std::u16string::npos; end = path.find(u'\\', end + 1))
        addKey(database, path.substr(0, end));
    addKey(database, path);
    return *findKey(database, path);
}

HKEY openKey(std::u16string path, REGSAM access) {
    return openKeys().add(std::make_shared<Key>(Key{std::move(path), access}));
}

} // namespace

LSTATUS WINAPI RegCreateKeyExW(HKEY hKey, LPCWSTR lpSubKey, DWORD Reserved, LPWSTR, DWORD dwOptions, REGSAM samDesired,
                               LPSECURITY_ATTRIBUTES, PHKEY phkResult, LPDWORD lpdwDisposition) {
    return static_cast<LSTATUS>(errorNumberOf([&] {
        require(phkResult != nullptr && lpSubKey != nullptr && Reserved == 0 && dwOptions == REG_OPTION_NON_VOLATILE,
                ERROR_INVALID_PARAMETER);
        std::u16string path = subKeyPath(*keyOf(hKey), lpSubKey);
        bool exists = keyExists(path);
        if (!exists) {
            Database store = writeStore();
            makeKey(store, path);
            store.commit();
        }
        *phkResult = openKey(std::move(path), samDesired);
        if (lpdwDisposition != nullptr) *lpdwDisposition = exists ? REG_OPENED_EXISTING_KEY : REG_CREATED_NEW_KEY;
    }));
}

LSTATUS WINAPI RegOpenKeyExW(HKEY hKey, LPCWSTR lpSubKey, DWORD, REGSAM samDesired, PHKEY phkResult) {
    return static_cast<LSTATUS>(errorNumberOf([&]() -> DWORD {
        require(phkResult != nullptr, ERROR_INVALID_PARAMETER);
        std::u16string path = subKeyPath(*keyOf(hKey), lpSubKey);
        if (!keyExists(path)) return ERROR_FILE_NOT_FOUND;
        *phkResult = openKey(std::move(path), samDesired);
        return ERROR_SUCCESS;
    }));
}

LSTATUS WINAPI RegQueryValueExW(HKEY hKey, LPCWSTR lpValueName, LPDWORD lpReserved, LPDWORD lpType, LPBYTE lpData,
                                LPDWORD lpcbData) {
    return static_cast<LSTATUS>(errorNumberOf([&]() -> DWORD {
        require(lpReserved == nullptr && (lpData == nullptr || lpcbData != nullptr), ERROR_INVALID_PARAMETER);
        auto key = keyOf(hKey);
        require((key->access & KEY_QUERY_VALUE) != 0, ERROR_ACCESS_DENIED);
        ValueAnswer answer = askFor(key->path, lpValueName == nullptr ? u"" : lpValueName);
        if (!answer.value) return ERROR_FILE_NOT_FOUND;
        const StoredValue& value = *answer.value;
        if (lpType != nullptr) *lpType = value.type;
        if (lpcbData == nullptr) return ERROR_SUCCESS;
        DWORD room = std::exchange(*lpcbData, static_cast<DWORD>(value.data.size()));
        if (lpData == nullptr) return ERROR_SUCCESS;
        if (room < value.data.size()) return ERROR_MORE_DATA;
        std::copy(value.data.begin(), value.data.end(), lpData);
        return ERROR_SUCCESS;
    }));
}

LSTATUS WINAPI RegSetValueExW(HKEY hKey, LPCWSTR lpValueName, DWORD Reserved, DWORD dwType, const BYTE* lpData,
                              DWORD cbData) {
    return static_cast<LSTATUS>(errorNumberOf([&] {
        require(Reserved == 0 && (lpData != nullptr || cbData == 0), ERROR_INVALID_PARAMETER);
        auto key = keyOf(hKey);
        require((key->access & KEY_SET_VALUE) != 0, ERROR_ACCESS_DENIED);
        Database store = writeStore();
        // Made again if the store was taken away while the key was open.
        std::int64_t id = makeKey(store, key->path);
        writeValue(store, id, lpValueName == nullptr ? u"" : lpValueName, dwType, {lpData, cbData});
        store.commit();
    }));
}

LSTATUS WINAPI RegCloseKey(HKEY hKey) {
    return static_cast<LSTATUS>(errorNumberOf(
        [&] { require(hKey == HKEY_CURRENT_USER || openKeys().remove(hKey) != nullptr, ERROR_INVALID_HANDLE); }));
}
