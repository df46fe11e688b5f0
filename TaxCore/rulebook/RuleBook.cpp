#include "TaxCore/rulebook/RuleBook.h"

#include "TaxCore/base/Text.h"
#include "TaxCore/rulebook/RuleReader.h"

namespace taxcore {

namespace {

std::string cacheKey(std::string_view canton, int year) {
    return std::string(canton) + "-" + std::to_string(year);
}

} // namespace

tl::expected<std::shared_ptr<const RuleBook>, RuleBook::LoadError>
RuleBook::load(int year, std::string_view canton) {
    RuleBookCache& cache = RuleBookCache::shared();
    if (auto book = cache.get(year, canton)) {
        return book;
    }
    return load(year, canton, cache, RuleFiles::bundle());
}

tl::expected<std::shared_ptr<const RuleBook>, RuleBook::LoadError>
RuleBook::load(int year, std::string_view canton, RuleBookCache& cache, const RuleFiles& files) {
    if (auto book = cache.get(year, canton)) {
        return book;
    }
    const std::string prefix = lowerAscii(canton);
    const std::string suffix = "-" + std::to_string(year);
    auto book = std::make_shared<RuleBook>();
    book->year = year;
    book->canton = canton;
    RuleReader reader(files);
    reader.read(prefix + "-params" + suffix, book->cantonal);
    reader.read(prefix + "-params" + suffix, book->cantonalExtra);
    reader.read("dbst" + suffix, book->federal);
    reader.read("dbst" + suffix, book->federalRules);
    reader.read(prefix + "-tarif" + suffix, book->sgTariff);
    reader.read(prefix + "-steuerfuesse" + suffix, book->municipalities);
    if (reader.error()) {
        return tl::unexpected(std::move(*reader.error()));
    }
    cache.put(book);
    return book;
}

RuleBookCache& RuleBookCache::shared() {
    static RuleBookCache cache;
    return cache;
}

std::shared_ptr<const RuleBook> RuleBookCache::get(int year, std::string_view canton) const {
    return books_.get(cacheKey(canton, year));
}

void RuleBookCache::put(std::shared_ptr<const RuleBook> book) {
    std::string key = cacheKey(book->canton, book->year);
    books_.put(std::move(key), std::move(book));
}

} // namespace taxcore
