#include "platform/qt/SheetTree.h"

#include "platform/modules.h"
#include "platform/posix/service.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t mostPages = 100;
constexpr int mostTitle = 256;

// Only what the program's version of the record has; the rest is zero.
PROPSHEETPAGEW copyOf(const PROPSHEETPAGEW& record) {
    PROPSHEETPAGEW copy{};
    std::memcpy(&copy, &record, std::min<std::size_t>(record.dwSize, sizeof copy));
    copy.dwSize = sizeof copy;
    return copy;
}

bool isNumber(LPCWSTR text) { return reinterpret_cast<ULONG_PTR>(text) >> 16U == 0; }

std::u16string titleOf(const PROPSHEETPAGEW& record) {
    if ((record.dwFlags & PSP_USETITLE) == 0 || !record.pszTitle) return {};
    if (!isNumber(record.pszTitle)) return fromWide(record.pszTitle);
    WCHAR text[mostTitle] = {};
    LoadStringW(record.hInstance, static_cast<UINT>(reinterpret_cast<ULONG_PTR>(record.pszTitle)), text, mostTitle);
    return fromWide(text);
}

} // namespace

struct SheetTree::Node {
    HANDLE handle = nullptr;
    SheetTree* tree = nullptr;
    Node* parent = nullptr;
    PROPSHEETUI_INFO info{}; // of a group
    PFNPROPSHEETUI function = nullptr;
    std::unique_ptr<SheetPage> page; // of a page
    std::vector<std::unique_ptr<Node>> children;

    // 0, with the last error, when the program let something out.
    LONG call(WORD reason, LPARAM lParam) noexcept {
        info.Reason = reason;
        return service(LONG{0}, [&] { return function(&info, lParam); });
    }

    // Whoever asked for it hears when the sheet takes the page and when it lets it go.
    void tellPage(UINT message) noexcept {
        if (!page || (page->record.dwFlags & PSP_USECALLBACK) == 0 || !page->record.pfnCallback) return;
        service(UINT{0}, [&] { return page->record.pfnCallback(nullptr, message, &page->record); });
    }

    template <typename Visit>
    void forEach(Visit visit) {
        visit(*this);
        for (const std::unique_ptr<Node>& child : children)
            child->forEach(visit);
    }

    ~Node() {
        while (!children.empty())
            children.pop_back();
        tellPage(PSPCB_RELEASE);
        if (function) call(PROPSHEETUI_REASON_DESTROY, info.Result == CPSUI_CANCEL ? FALSE : TRUE);
    }
};

namespace {

// The trees of the sheets that are up, the newest last: a page may open a sheet of its own.
std::vector<SheetTree*>& trees() {
    static std::vector<SheetTree*> all;
    return all;
}

// Handles are numbers that never come back.
HANDLE newHandle() {
    static ULONG_PTR last = 0;
    return reinterpret_cast<HANDLE>((++last << 4U) | 5U); // NOLINT
}

} // namespace

SheetTree::SheetTree() : root_(std::make_unique<Node>()) {
    root_->handle = newHandle();
    root_->tree = this;
    trees().push_back(this);
}

SheetTree::~SheetTree() {
    isOpen_ = true;
    root_.reset();
    std::erase(trees(), this);
}

LONG SheetTree::begin(PFNPROPSHEETUI function, LPARAM lParam, PROPSHEETUI_INFO_HEADER& header) {
    root_->info = {sizeof(PROPSHEETUI_INFO),
                   PROPSHEETUI_INFO_VERSION,
                   PSUIINFO_UNICODE,
                   0,
                   root_->handle,
                   comPropSheet,
                   lParam,
                   0,
                   CPSUI_CANCEL};
    root_->function = function;
    LONG answer = root_->call(PROPSHEETUI_REASON_INIT, lParam);
    if (answer > 0) answer = root_->call(PROPSHEETUI_REASON_GET_INFO_HEADER, reinterpret_cast<LPARAM>(&header));
    isOpen_ = true;
    return answer;
}

std::vector<SheetPage*> SheetTree::pages() const {
    std::vector<SheetPage*> pages;
    root_->forEach([&](const Node& node) {
        if (node.page) pages.push_back(node.page.get());
    });
    return pages;
}

std::size_t SheetTree::startPage() const {
    const Node* start = find(startPage_);
    const std::vector<SheetPage*> all = pages();
    const auto at = std::find(all.begin(), all.end(), start ? start->page.get() : nullptr);
    return at == all.end() ? 0 : static_cast<std::size_t>(at - all.begin());
}

ULONG_PTR SheetTree::result() const noexcept { return root_->info.Result; }

SheetTree::Node* SheetTree::find(HANDLE handle) const {
    Node* found = nullptr;
    if (root_) root_->forEach([&](Node& node) { found = node.handle == handle ? &node : found; });
    return found;
}

LONG_PTR CALLBACK SheetTree::comPropSheet(HANDLE group, UINT function, LPARAM lParam1, LPARAM lParam2) {
    for (SheetTree* tree : trees())
        if (Node* node = tree->find(group)) return tree->run(*node, function, lParam1, lParam2);
    SetLastError(ERROR_INVALID_HANDLE);
    return ERR_CPSUI_INVALID_PDATA;
}

LONG_PTR SheetTree::run(Node& group, UINT function, LPARAM lParam1, LPARAM lParam2) {
    const auto handle = reinterpret_cast<HANDLE>(lParam1); // NOLINT
    switch (function) {
    case CPSFUNC_ADD_PROPSHEETPAGEW:
        return reinterpret_cast<LONG_PTR>(addPage(group, reinterpret_cast<const PROPSHEETPAGEW*>(lParam1)));
    case CPSFUNC_ADD_PCOMPROPSHEETUIW:
        return reinterpret_cast<LONG_PTR>(addOptions(group, reinterpret_cast<const COMPROPSHEETUI*>(lParam1)));
    case CPSFUNC_ADD_PFNPROPSHEETUIW:
        return addFunction(group, reinterpret_cast<PFNPROPSHEETUI>(lParam1), lParam2);
    case CPSFUNC_DELETE_HCOMPROPSHEET:
        return remove(group, handle);
    case CPSFUNC_SET_HSTARTPAGE:
        return setStartPage(handle, lParam2);
    case CPSFUNC_GET_PAGECOUNT:
        return copyPages(group, nullptr, 0);
    case CPSFUNC_GET_HPSUIPAGES:
        return copyPages(group, reinterpret_cast<HANDLE*>(lParam1), lParam2);
    case CPSFUNC_SET_PSUIPAGE_TITLEW:
        return setTitle(handle, reinterpret_cast<LPCWSTR>(lParam2));
    case CPSFUNC_SET_RESULT: {
        const Node* from = handle ? find(handle) : &group;
        return from ? setResult(*from, static_cast<ULONG_PTR>(lParam2)) : ERR_CPSUI_INVALID_PDATA;
    }
    default:
        SetLastError(ERROR_NOT_SUPPORTED);
        return 0;
    }
}

SheetTree::Node& SheetTree::addNode(Node& parent) {
    Node& node = *parent.children.emplace_back(std::make_unique<Node>());
    node.handle = newHandle();
    node.tree = this;
    node.parent = &parent;
    return node;
}

HANDLE SheetTree::addPage(Node& parent, const PROPSHEETPAGEW* record) {
    const bool isUsable = record && record->dwSize >= PROPSHEETPAGEW_V1_SIZE && record->pfnDlgProc && record->pResource;
    if (!isUsable || isOpen_ || pages().size() >= mostPages) return nullptr;
    Node& node = addNode(parent);
    node.page = std::make_unique<SheetPage>();
    node.page->record = copyOf(*record);
    node.page->title = titleOf(node.page->record);
    node.tellPage(PSPCB_ADDREF);
    return node.handle;
}

HANDLE SheetTree::addOptions(Node& parent, const COMPROPSHEETUI* record) {
    if (!record || !record->pOptItem || record->cOptItem == 0 || isOpen_ || pages().size() >= mostPages) return nullptr;
    Node& node = addNode(parent);
    node.page = std::make_unique<SheetPage>();
    node.page->options = std::make_unique<OptionPage>(*record, [&node](ULONG_PTR result) { setResult(node, result); });
    node.page->record = node.page->options->sheetPage();
    node.page->title = titleOf(node.page->record);
    return node.handle;
}

LONG_PTR SheetTree::addFunction(Node& parent, PFNPROPSHEETUI function, LPARAM lParam) {
    if (!function || isOpen_) return 0;
    Node& node = addNode(parent);
    node.info = root_->info;
    node.info.hComPropSheet = node.handle;
    node.info.lParamInit = lParam;
    node.info.UserData = 0;
    node.info.Result = CPSUI_CANCEL;
    node.function = function;
    if (node.call(PROPSHEETUI_REASON_INIT, lParam) > 0) return reinterpret_cast<LONG_PTR>(node.handle);
    parent.children.pop_back();
    return 0;
}

LONG_PTR SheetTree::remove(Node& group, HANDLE handle) {
    const auto at = std::find_if(group.children.begin(), group.children.end(),
                                 [&](const std::unique_ptr<Node>& child) { return child->handle == handle; });
    if (at == group.children.end() || isOpen_) return 0;
    group.children.erase(at);
    return 1;
}

LONG_PTR SheetTree::setStartPage(HANDLE page, LPARAM index) {
    if (!page) {
        std::vector<HANDLE> handles(pages().size());
        copyPages(*root_, handles.data(), static_cast<LPARAM>(handles.size()));
        if (index >= 0 && index < static_cast<LPARAM>(handles.size())) page = handles[static_cast<std::size_t>(index)];
    }
    if (!find(page)) return 0;
    startPage_ = page;
    return 1;
}

LONG_PTR SheetTree::setTitle(HANDLE page, LPCWSTR title) {
    Node* node = find(page);
    if (!node || !node->page || !title || isOpen_) return 0;
    node->page->title = fromWide(title);
    return 1;
}

// The number of pages; as many as there is room for are copied.
LONG_PTR SheetTree::copyPages(Node& group, HANDLE* handles, LPARAM room) {
    LONG_PTR count = 0;
    group.forEach([&](const Node& node) {
        if (!node.page) return;
        if (handles && count < room) handles[count] = node.handle;
        ++count;
    });
    return count;
}

// Each group above hears what the one below has made of it. Returns how many have been told.
int SheetTree::setResult(const Node& from, ULONG_PTR result) {
    int told = 0;
    HANDLE source = from.handle;
    for (Node* group = from.parent; group; group = group->parent) {
        SETRESULT_INFO info{sizeof info, 0, source, static_cast<LRESULT>(result)};
        ++told;
        if (group->call(PROPSHEETUI_REASON_SET_RESULT, reinterpret_cast<LPARAM>(&info)) <= 0) break;
        source = group->handle;
        result = group->info.Result;
    }
    return told;
}
