#include "layout/language/expression_scope.h"

#include "layout/language/vex_properties.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace Kesto {

namespace {

template <class T>
void RequireOut(const T* value)
{
    if (value == nullptr)
        throw std::logic_error("Warning! (value != NULL)");
}

// Names are short: eight bytes at a time here beat a call.
inline bool IsSameName(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    std::size_t i = 0;
    for (; i + sizeof(std::uint64_t) <= a.size(); i += sizeof(std::uint64_t)) {
        std::uint64_t x;
        std::uint64_t y;
        std::memcpy(&x, a.data() + i, sizeof x);
        std::memcpy(&y, b.data() + i, sizeof y);
        if (x != y)
            return false;
    }
    for (; i < a.size(); ++i)
        if (a[i] != b[i])
            return false;
    return true;
}

// One of 512, by bits of the hash that all characters of the name have a part in.
inline std::uint32_t MaybeBit(std::uint32_t hash)
{
    return hash * 0x9E3779B1U >> 23;
}

} // namespace

void ParseListener::Expected(const char*, const char*) {}
void ParseListener::ScopeEnds(const CExpressionScope&, const char*) {}

CExpressionScope::CExpressionScope(CExpressionScope* parent, CClientFunctions* functions,
                                   StringPool* pool, ParseListener* listener)
    : fPool(pool != nullptr ? pool : &fOwnPool),
      fFunctions(functions == nullptr && parent != nullptr ? parent->fFunctions : functions),
      fListener(listener == nullptr && parent != nullptr ? parent->fListener : listener),
      fParent(parent), fNesting(parent != nullptr ? parent->fNesting + 1 : 0)
{
}

CExpressionScope::~CExpressionScope() = default;

void CExpressionScope::CheckNesting(const char* position) const
{
    const int nesting = fNesting;
    if (nesting < kMaxNesting)
        return;
    Expected(position, "less nesting");
    throw std::logic_error("Warning! (nesting < kMaxNesting)");
}

void CExpressionScope::Clear()
{
    fHasEntries = false;
    fVariableCount = 0;
    fLayoutKeys = {};
    fMaybeHere = {};
    fFew = nullptr;
    fBuckets.reset();
    fOwnPool.Clear();
}

inline const VexValue* CExpressionScope::FindHere(const VexName& name, std::size_t bucket) const
{
    const std::uint32_t bit = MaybeBit(name.hash);
    if ((fMaybeHere[bit / 64] >> (bit % 64) & 1) == 0)
        return nullptr;
    const VexValue* variable = fBuckets ? (*fBuckets)[bucket] : fFew;
    while (variable != nullptr &&
           (variable->nameHash != name.hash || !IsSameName(variable->Name(), name.text)))
        variable = variable->next;
    return variable;
}

inline VexValue* CExpressionScope::FindHere(const VexName& name, std::size_t bucket)
{
    return const_cast<VexValue*>(
        static_cast<const CExpressionScope*>(this)->FindHere(name, bucket));
}

const VexValue* CExpressionScope::FindVariable(const VexName& name,
                                               const CExpressionScope* stop) const
{
    const std::size_t bucket = name.hash % kBucketCount;
    for (const CExpressionScope* scope = this; scope != stop; scope = scope->fParent) {
        if (!scope->fHasEntries)
            continue;
        if (const VexValue* variable = scope->FindHere(name, bucket))
            return variable;
    }
    return nullptr;
}

inline void CExpressionScope::Insert(VexValue& variable)
{
    if (!fBuckets && fVariableCount == kFewVariables)
        SpreadToBuckets();
    VexValue*& chain = fBuckets ? (*fBuckets)[variable.fBucket] : fFew;
    variable.next = chain;
    chain = &variable;
    const std::uint32_t bit = MaybeBit(variable.nameHash);
    fMaybeHere[bit / 64] |= std::uint64_t{1} << (bit % 64);
    fHasEntries = true;
    ++fVariableCount;
}

void CExpressionScope::SpreadToBuckets()
{
    fBuckets = std::make_unique<Buckets>();
    std::array<VexValue**, kBucketCount> ends;
    std::ranges::transform(*fBuckets, ends.begin(), [](VexValue*& first) { return &first; });
    for (VexValue* variable = fFew; variable != nullptr;) {
        VexValue* const next = std::exchange(variable->next, nullptr);
        VexValue**& end = ends[variable->fBucket];
        *end = variable;
        end = &variable->next;
        variable = next;
    }
    fFew = nullptr;
}

inline VexValue& CExpressionScope::MakeVariable(const VexName& name, std::size_t bucket,
                                                const char* storedName)
{
    auto* const variable = static_cast<VexValue*>(fPool->Allocate(sizeof(VexValue)));
    variable->fName = storedName;
    variable->fNameLength = static_cast<std::uint32_t>(name.text.size());
    variable->nameHash = name.hash;
    variable->fBucket = static_cast<std::uint32_t>(bucket);
    Insert(*variable);
    return *variable;
}

inline void CExpressionScope::Define(const VexName& name, const VexContent& content, bool copyName)
{
    const std::size_t bucket = name.hash % kBucketCount;
    VexValue* variable = FindHere(name, bucket);
    if (variable == nullptr) {
        variable = &MakeVariable(name, bucket,
                                 copyName ? fPool->InternString(name.text) : name.text.data());
        AddLayoutKey(name, fLayoutKeys);
    }
    variable->integer = content.integer;
    variable->text = content.text;
}

// The set of keys tells whether the variable is there.
void CExpressionScope::AddVariable(LayoutKey key, std::int32_t integer)
{
    const VexName& name = NameOf(key);
    const std::size_t bucket = name.hash % kBucketCount;
    VexValue& variable = fLayoutKeys.Has(key) ? *FindHere(name, bucket)
                                              : MakeVariable(name, bucket, name.text.data());
    fLayoutKeys.Add(key);
    variable.integer = integer;
    variable.text = kVexNoText;
}

void CExpressionScope::AddVariable(const VexName& name, const VexContent& content)
{
    Define(name, content, true);
}

void CExpressionScope::AddVariable(std::string_view name, std::string_view text)
{
    AddVariable(name, {VexUndefined, fPool->InternString(text)});
}

void CExpressionScope::AddUncopied(const VexName& name, const VexContent& content)
{
    Define(name, content, false);
}

bool CExpressionScope::GetIntVariable(std::string_view name, std::int32_t* out) const
{
    RequireOut(out);
    const VexValue* variable = FindVariable(name);
    if (variable != nullptr)
        *out = variable->integer;
    return variable != nullptr;
}

bool CExpressionScope::GetStringVariable(std::string_view name, const char** out) const
{
    RequireOut(out);
    const VexValue* variable = FindVariable(name);
    if (variable != nullptr)
        *out = variable->text;
    return variable != nullptr;
}

bool CExpressionScope::GetBoolVariable(std::string_view name, bool* out) const
{
    RequireOut(out);
    const VexValue* variable = FindVariable(name);
    if (variable != nullptr)
        *out = variable->integer != 0;
    return variable != nullptr;
}

bool CExpressionScope::GetFourCharVariable(std::string_view name, std::int32_t* out) const
{
    RequireOut(out);
    const VexValue* variable = FindVariable(name);
    if (variable == nullptr)
        return false;
    *out = variable->integer;
    if (variable->integer == VexUndefined && std::strlen(variable->text) == 4) {
        std::uint32_t code = 0;
        for (const char* c = variable->text; *c != 0; ++c)
            code = code << 8 | static_cast<unsigned char>(*c);
        *out = static_cast<std::int32_t>(code);
    }
    return true;
}

template <class Visit>
void CExpressionScope::ForEachHere(Visit visit) const
{
    const auto visitChain = [&visit](const VexValue* chain) {
        for (; chain != nullptr; chain = chain->next)
            visit(*chain);
    };
    visitChain(fFew);
    if (fBuckets)
        std::ranges::for_each(*fBuckets, visitChain);
}

std::vector<const VexValue*> CExpressionScope::VariablesByBucket() const
{
    std::vector<const VexValue*> variables;
    variables.reserve(static_cast<std::size_t>(fVariableCount));
    ForEachHere([&variables](const VexValue& variable) { variables.push_back(&variable); });
    std::ranges::stable_sort(variables, {}, &VexValue::fBucket);
    return variables;
}

// Around before within, so that the nearer definition of a name overwrites the other.
void CopyScopeVariables(const CExpressionScope& from, CExpressionScope& to,
                        const CExpressionScope* stop)
{
    if (from.Parent() != nullptr && from.Parent() != stop)
        CopyScopeVariables(*from.Parent(), to, stop);
    from.CopyOwnVariables(to);
}

void CExpressionScope::CopyOwnVariables(CExpressionScope& to) const
{
    ForEachHere([&to](const VexValue& variable) {
        const bool isNumber = variable.integer != VexUndefined;
        const bool isText = *variable.text != 0;
        if (isNumber && !isText)
            to.AddVariable(variable.Name(), variable.integer);
        else if (isText && !isNumber)
            to.AddVariable(variable.Name(), variable.text);
    });
}

void CExpressionScope::ListVariables(CVexVariablePropertyList& out) const
{
    for (const VexValue* variable : VariablesByBucket()) {
        CVexVariableProperty property;
        property.SetName(variable->Name());
        const bool hasText = *variable->text != 0;
        if (variable->integer == VexUndefined && hasText)
            property.SetText(variable->text);
        else if (variable->integer != VexUndefined && !hasText)
            property.SetInteger(variable->integer);
        else
            property.SetType(CVexProperty::kType_Unknown);
        out.Add(property);
    }
}

} // namespace Kesto
