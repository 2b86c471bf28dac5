// A scope of the layout language: a table of variables, chained to the scope around it, and the
// evaluator of expressions on them.
//
// Expressions are computed while they are read; there is no tree. Each rule of the grammar is a
// member that is handed the cursor: if it matches, the cursor is after what it matched, and if
// not, the cursor is where it was and the scope is unchanged, so that the next alternative can be
// tried. Texts end with a zero byte.
//
// Nothing here nests deeper than kMaxNesting, and a division by zero throws, both with a
// std::logic_error.
#pragma once

#include "layout/language/client_functions.h"
#include "layout/language/layout_keys.h"
#include "layout/language/parse_listener.h"
#include "layout/language/string_pool.h"
#include "layout/language/vex_text.h"
#include "layout/language/vex_value.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace Kesto {

class CVexVariablePropertyList;

class CExpressionScope {
public:
    // How deep parentheses, signs, calls and blocks may be nested, all of them counted
    // together. A deeper one throws std::logic_error "Warning! (nesting < kMaxNesting)".
    static constexpr int kMaxNesting = 200;

    // How many heights one align_centers takes. More throw std::logic_error
    // "Warning! (heightCount < kMaxAlignedHeights)".
    static constexpr std::size_t kMaxAlignedHeights = 256;

    // All may be null. The scope uses `pool` or else its own, and `functions` or else its parent's;
    // it takes over its parent's listener when it is given none. What it is given must outlive it.
    explicit CExpressionScope(CExpressionScope* parent = nullptr,
                              CClientFunctions* functions = nullptr, StringPool* pool = nullptr,
                              ParseListener* listener = nullptr);
    CExpressionScope(const CExpressionScope&) = delete;
    CExpressionScope& operator=(const CExpressionScope&) = delete;
    virtual ~CExpressionScope();

    // The variable in the nearest scope that defines it, or null.
    const VexValue* FindVariable(std::string_view name) const
    {
        return FindVariable(VexName(name));
    }
    const VexValue* FindVariable(const VexName& name) const { return FindVariable(name, nullptr); }

    // The same, but `stop` and the scopes around it are not searched. Null stops nothing.
    const VexValue* FindVariable(const VexName& name, const CExpressionScope* stop) const;

    // Defines or overwrites in this scope. Names and texts are copied to the pool, but a `content`
    // keeps its text's address: that must live as long as the scope. A number has the empty text, a
    // text the undefined integer.
    void AddVariable(const VexName& name, const VexContent& content);
    void AddVariable(std::string_view name, const VexContent& content)
    {
        AddVariable(VexName(name), content);
    }
    void AddVariable(std::string_view name, std::int32_t integer)
    {
        AddVariable(name, {integer, kVexNoText});
    }
    void AddVariable(std::string_view name, std::string_view text);
    void AddVariable(std::string_view name, const char* text)
    {
        AddVariable(name, std::string_view(text));
    }

    // Like AddVariable, for a name whose characters outlive the scope: it isn't copied.
    void AddUncopied(const VexName& name, const VexContent& content);
    void AddConstant(const VexName& name, std::int32_t integer)
    {
        AddUncopied(name, {integer, kVexNoText});
    }

    // Each returns whether the name is defined in the chain, and stores the value only then. A null
    // `out` throws std::logic_error "Warning! (value != NULL)".
    bool GetIntVariable(std::string_view name, std::int32_t* out) const;
    bool GetStringVariable(std::string_view name, const char** out) const;
    // True for any integer but 0, so also for a variable that is only a text.
    bool GetBoolVariable(std::string_view name, bool* out) const;
    // The integer; where it is undefined, a text of four bytes read with the first byte highest.
    bool GetFourCharVariable(std::string_view name, std::int32_t* out) const;

    bool IsDefined(std::string_view name) const { return FindVariable(name) != nullptr; }

    // True if `text` begins with a condition that is neither undefined nor 0.
    bool EvaluateCondition(const char* text);

    // The value of a sum that is all of `text`; otherwise, or when it is undefined, throws
    // std::logic_error "Warning! (static_cast<long>(paramErr) == static_cast<long>(noErr))".
    std::int32_t EvaluateInteger(const char* text);

    // Runs one or more statements and assignments, which must be all of `text`; throws as
    // EvaluateInteger does.
    void EvaluateStatements(const char* text);

    // Whether all of `text` is a condition.
    bool IsCondition(const char* text);

    // Appends a property for each variable of this scope alone: by bucket, the latest definition of
    // a bucket first. A variable with both a number and a text, or with neither, has the type 0 and
    // no value.
    void ListVariables(CVexVariablePropertyList& out) const;

    // Adds the variables of this scope alone to `to`, but for those that have both a number and a
    // text (as a text of four bytes has), or neither. Texts are copied to the pool of `to`.
    void CopyOwnVariables(CExpressionScope& to) const;

    const CExpressionScope* Parent() const { return fParent; }
    StringPool& Pool() { return *fPool; }

    // The layout keys that this scope alone defines.
    LayoutKeySet LayoutKeys() const { return fLayoutKeys; }
    const VexValue* FindVariable(LayoutKey key) const { return FindVariable(NameOf(key)); }
    void AddVariable(LayoutKey key, std::int32_t integer);

protected:
    // Ends the life of all variables, and of all texts if the pool is the scope's own.
    void Clear();

    // Throws if the scope is nested to the limit. `position` is where the next level begins.
    void CheckNesting(const char* position) const;

    bool MatchStatement(const char*& cursor);
    bool MatchStep(const char*& cursor);
    bool MatchAlignCenters(const char*& cursor);
    // The name has been read already and `cursor` is after it.
    bool MatchAssignment(const VexName& name, const char*& cursor);
    bool MatchStatementOrAssignment(const char*& cursor);
    // `stops` holds two characters that may follow a name which is a value by itself.
    bool ParseValue(const char*& cursor, const char (&stops)[3], VexContent& value);

    // Compares characters, with no regard to where a word ends.
    template <std::size_t N>
    bool MatchLiteral(const char*& cursor, const char (&literal)[N]) const
    {
        const char* const start = SkipVexSpace(cursor);
        for (std::size_t i = 0; i + 1 < N; ++i)
            if (start[i] != literal[i]) {
                Expected(start, literal);
                return false;
            }
        cursor = start + N - 1;
        return true;
    }
    bool MatchName(const char*& cursor, VexName& name) const;

    void Matched(VexRule rule, const char* start, const char* end) const
    {
        if (fListener != nullptr) [[unlikely]]
            fListener->Event(rule, SkipVexSpace(start), end);
    }
    void Expected(const char* position, const char* what) const
    {
        if (fListener != nullptr) [[unlikely]]
            fListener->Expected(SkipVexSpace(position), what);
    }

    CClientFunctions* Functions() const { return fFunctions; }
    ParseListener* Listener() const { return fListener; }

private:
    static constexpr std::uint32_t kBucketCount = 127;
    // A scope of fewer variables keeps them in one chain. Most scopes do, and cost no table.
    static constexpr int kFewVariables = 24;
    using Buckets = std::array<VexValue*, kBucketCount>;

    const VexValue* FindHere(const VexName& name, std::size_t bucket) const;
    VexValue* FindHere(const VexName& name, std::size_t bucket);
    void Insert(VexValue& variable);
    void SpreadToBuckets();
    template <class Visit>
    void ForEachHere(Visit visit) const;
    std::vector<const VexValue*> VariablesByBucket() const;
    void Define(const VexName& name, const VexContent& content, bool copyName);
    VexValue& MakeVariable(const VexName& name, std::size_t bucket, const char* storedName);
    const VexValue* Resolve(const VexName& name);

    bool MatchLogical(const char*& cursor, std::int32_t& result);
    bool MatchAnd(const char*& cursor, std::int32_t& result);
    bool MatchRelational(const char*& cursor, std::int32_t& result);
    bool MatchEquality(const char*& cursor, std::int32_t& result);
    bool MatchAdditive(const char*& cursor, std::int32_t& result);
    bool MatchMultiplicative(const char*& cursor, std::int32_t& result);
    bool MatchUnary(const char*& cursor, std::int32_t& result);
    bool MatchPrimary(const char*& cursor, std::int32_t& result);
    bool MatchParenthesis(const char*& cursor, std::int32_t& result);
    bool MatchFunction(const VexName& name, const char*& cursor, std::int32_t& result);
    bool MatchMinMax(bool wantsMin, const char*& cursor, std::int32_t& result);
    bool MatchDim(const char*& cursor, std::int32_t& result);
    bool MatchMembership(const char*& cursor, std::int32_t& result);
    bool MatchClientCall(const VexName& name, const char*& cursor, std::int32_t& result);
    bool MatchNamedArgument(const char*& cursor, CExpressionScope& arguments);
    bool MatchStringValue(const char*& cursor, VexContent& value);
    static constexpr std::size_t kAnyCount = 0;
    bool MatchTargets(const char*& cursor, std::size_t& count, std::size_t wanted);
    template <class ValueOf>
    void AssignTargets(const char* names, std::size_t count, ValueOf valueOf);

    class CNestingGuard;
    friend class CNestingGuard;

    StringPool fOwnPool;
    StringPool* fPool;
    CClientFunctions* fFunctions;
    ParseListener* fListener;
    bool fLogical = true;    // `!` and conditions in parentheses are allowed
    bool fMembership = true; // in(...) is allowed
    CExpressionScope* fParent;
    bool fHasEntries = false;
    int fNesting;
    int fVariableCount = 0;
    LayoutKeySet fLayoutKeys;
    // A bit for some names each, set when one of them is here: most searches end at it.
    std::array<std::uint64_t, 8> fMaybeHere{};
    VexValue* fFew = nullptr;
    std::unique_ptr<Buckets> fBuckets; // instead of fFew, in a large scope
    // For a debugger: the last name that an expression couldn't resolve.
    const char* fLastUnknown = nullptr;
    std::size_t fLastUnknownLength = 0;
};

// CopyOwnVariables for `from` and the scopes around it, up to `stop` and without it; nearer
// definitions overwrite further ones. So what a view and the blocks around it say reaches its
// layout scope, and what the whole program defines does not.
void CopyScopeVariables(const CExpressionScope& from, CExpressionScope& to,
                        const CExpressionScope* stop);

} // namespace Kesto
