#include "harness.h"
#include "tables.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace bench {

namespace {

std::vector<Timing> timings;

Case & caseOf(std::string const & item, std::string const & element) {
    for (Case & known : cases())
        if (known.item == item && known.element == element)
            return known;
    cases().push_back({item, element, {}, true});
    return cases().back();
}

} // namespace

std::vector<Case> & cases() {
    static std::vector<Case> all;
    return all;
}

std::vector<Timing> & allTimings() {
    return timings;
}

void enter(std::string const & name, std::string const & item, std::string const & element, std::string const & who,
           std::int64_t operations) {
    caseOf(item, element);
    timings.push_back({name, item, element, who, operations, {}});
}

void remark(std::string const & item, std::string const & element, std::string const & heading,
            std::string const & text) {
    caseOf(item, element).remarks.emplace_back(heading, text);
}

void require(std::string const & item, std::string const & element, bool isMet) {
    Case & entry = caseOf(item, element);
    entry.meetsRequirements = entry.meetsRequirements && isMet;
}

void mustAgree(std::string const & item, std::string const & element, std::string const & who, double difference,
               double allowed) {
    if (difference <= allowed)
        return;
    std::fprintf(stderr, "%s, %s: ours and %s do not agree, %g where %g is allowed\n", item.c_str(), element.c_str(),
                 who.c_str(), difference, allowed);
    std::exit(1);
}

} // namespace bench
