// SPDX-License-Identifier: GPL-3.0-or-later
// make_records OUT MEGABYTES [orders|lines|rows|names]: writes a document of at least MEGABYTES * 1,000,000
// bytes, the same one every time.
//   orders  records with customer, items, price, note and total; a 100 MB file has 2.7 million elements, 2.5
//   million
//           attributes and 1.9 million texts
//   lines   one element with nothing but small children: 490,000 of them in a 20 MB file
//   rows    a table: children with eight attributes each, 970,000 of them in a 120 MB file
//   names   children with 2,000 names in turn
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace {

/// A fixed sequence, so that numbers measured in different years can be compared; the standard distributions
/// may differ from library to library.
class Sequence {
public:
    std::uint32_t below(std::uint32_t limit) {
        state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<std::uint32_t>(((state_ >> 33) * limit) >> 31);
    }
    template <std::size_t N> std::string_view oneOf(const std::array<std::string_view, N>& values) {
        return values[below(static_cast<std::uint32_t>(N))];
    }

private:
    std::uint64_t state_ = 20240103;
};

constexpr std::array<std::string_view, 12> kCustomers = {
    "Bäckerei Öhler",  "Café de l’Étoile", "Harbour Stationers", "Księgarnia Źródło",
    "Papelería Muñoz", "Kontor Sørensen",  "Ateliér Dvořák",     "Weaver &amp; Daughters",
    "文具の山田",      "Miller Bros.",     "Old Town Books",     "P. Quispe"};
constexpr std::array<std::string_view, 12> kGoods = {
    "Fountain pen",     "Fineliner 0.3 mm", "Notebook A5, dotted", "Drawing pad A3", "Envelopes C6",
    "Ink “Königsblau”", "Encre forêt",      "Paper knife",         "Ruler 30 cm",    "Greeting card",
    "Stapler",          "Wax &lt;red&gt;"};
constexpr std::array<std::string_view, 8> kNotes = {"Please ring at the side door.",
                                                    "Deliver before 9 a.m., the shop opens at 10.",
                                                    "Facture à joindre au colis.",
                                                    "Bitte ohne Plastikfüllung verpacken.",
                                                    "Second attempt: the first parcel came back.",
                                                    "Gift wrap, no invoice in the box.",
                                                    "お急ぎでお願いします。",
                                                    "Goes with the order before, to the same door."};
constexpr std::array<std::string_view, 4> kCountries = {"DE", "FR", "PL", "JP"};
constexpr std::array<std::string_view, 3> kUnits = {"pc", "box", "m"};

std::string number(std::uint32_t value, std::size_t width) {
    std::string digits = std::to_string(value);
    return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

std::string amount(std::uint32_t cents) {
    return std::to_string(cents / 100) + "." + number(cents % 100, 2);
}

void appendItem(std::string& out, Sequence& sequence, std::uint32_t& total) {
    const std::uint32_t price = 100 + sequence.below(4900);
    const std::uint32_t quantity = 1 + sequence.below(12);
    total += price * quantity;
    out += "      <item sku=\"ST-" + number(sequence.below(10000), 4) + "\"><name lang=\"en\">";
    out += sequence.oneOf(kGoods);
    out += "</name><price vat=\"19\">" + amount(price) + "</price><quantity unit=\"";
    out += sequence.oneOf(kUnits);
    out += "\">" + std::to_string(quantity) + "</quantity></item>\n";
}

void appendOrder(std::string& out, Sequence& sequence, std::uint32_t serial) {
    out += "  <order id=\"" + number(serial, 7) + "\" date=\"2024-" + number(1 + sequence.below(12), 2) +
           "-" + number(1 + sequence.below(28), 2) + "\">\n    <customer country=\"";
    out += sequence.oneOf(kCountries);
    out += "\">";
    out += sequence.oneOf(kCustomers);
    out += "</customer>\n    <items>\n";
    std::uint32_t total = 0;
    for (std::uint32_t left = 1 + sequence.below(5); left > 0; --left)
        appendItem(out, sequence, total);
    out += "    </items>\n    <note>";
    out += sequence.oneOf(kNotes);
    out += "</note>\n    <total currency=\"EUR\">" + amount(total) + "</total>\n  </order>\n";
}

void appendLine(std::string& out, Sequence& sequence, std::uint32_t serial) {
    out += "<line nr=\"" + number(serial, 7) + "\">";
    out += sequence.oneOf(kGoods);
    out += "</line>\n";
}

void appendRow(std::string& out, Sequence& sequence, std::uint32_t serial) {
    out +=
        "<row nr=\"" + number(serial, 7) + "\" sku=\"ST-" + number(sequence.below(10000), 4) + "\" goods=\"";
    out += sequence.oneOf(kGoods);
    out += "\" country=\"";
    out += sequence.oneOf(kCountries);
    out += "\" price=\"" + amount(100 + sequence.below(4900)) + "\" quantity=\"" +
           std::to_string(1 + sequence.below(12)) + "\" unit=\"";
    out += sequence.oneOf(kUnits);
    out += "\" date=\"2024-" + number(1 + sequence.below(12), 2) + "-" + number(1 + sequence.below(28), 2) +
           "\"/>\n";
}

void appendName(std::string& out, Sequence&, std::uint32_t serial) {
    constexpr std::uint32_t kNames = 2000;
    out += "<name" + std::to_string(serial % kNames) + " nr=\"" + number(serial, 7) + "\"/>\n";
}

using AppendRecord = void (*)(std::string&, Sequence&, std::uint32_t);

AppendRecord recordsOf(std::string_view shape) {
    return shape == "orders"  ? appendOrder
           : shape == "lines" ? appendLine
           : shape == "rows"  ? appendRow
           : shape == "names" ? appendName
                              : nullptr;
}

bool write(std::FILE* file, std::string_view text) {
    return std::fwrite(text.data(), 1, text.size(), file) == text.size();
}

bool writeRecords(std::FILE* file, std::uint64_t bytes, AppendRecord append) {
    Sequence sequence;
    std::string block = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<records>\n";
    std::uint64_t written = 0;
    for (std::uint32_t serial = 1; written + block.size() < bytes; ++serial) {
        append(block, sequence, serial);
        if (block.size() > (1U << 20)) {
            if (!write(file, block))
                return false;
            written += block.size();
            block.clear();
        }
    }
    return write(file, block + "</records>\n");
}

} // namespace

int main(int argc, char** argv) {
    const std::string_view shape = argc > 3 ? argv[3] : "orders";
    const unsigned long long megabytes = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 0;
    if (argc < 3 || argc > 4 || megabytes == 0 || !recordsOf(shape)) {
        std::fputs("make_records OUT MEGABYTES [orders|lines|rows|names]\n", stderr);
        return 2;
    }
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(argv[1], "wb"), &std::fclose);
    if (!file || !writeRecords(file.get(), megabytes * 1000000, recordsOf(shape)) ||
        std::fclose(file.release()) != 0) {
        std::fprintf(stderr, "%s: %s\n", argv[1], std::strerror(errno));
        return 1;
    }
    return 0;
}
