#include <LumoConnection/batches.h>

namespace LumoConnection {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool IsGo(std::string_view line) {
    const auto first = line.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return false;
    line = line.substr(first, line.find_last_not_of(kBlanks) - first + 1);
    return line.size() == 2 && (line[0] | 0x20) == 'g' && (line[1] | 0x20) == 'o';
}

// What stays open from one line to the next.
class OpenEnds {
  public:
    bool Any() const { return closer_ != '\0' || comments_ > 0; }

    void Read(std::string_view line) {
        for (std::size_t i = 0; i < line.size(); ++i) {
            const auto pair = line.substr(i, 2);
            if (closer_ != '\0') {
                if (line[i] == closer_) closer_ = '\0';
            } else if (pair == "/*") {
                ++comments_;
                ++i;
            } else if (comments_ > 0) {
                if (pair == "*/") {
                    --comments_;
                    ++i;
                }
            } else if (pair == "--") {
                return;
            } else if (line[i] == '\'' || line[i] == '"') {
                closer_ = line[i];
            } else if (line[i] == '[') {
                closer_ = ']';
            }
        }
    }

  private:
    char closer_ = '\0';
    int comments_ = 0;
};

}  // namespace

std::vector<Batch> SplitBatches(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    std::vector<Batch> batches;
    OpenEnds open;
    std::string_view batch = text.substr(0, 0);
    int line = 1;
    int batch_line = 1;
    const auto Close = [&] {
        if (batch.find_first_not_of(kBlanks) != std::string_view::npos)
            batches.push_back({std::string(batch), batch_line});
    };
    for (std::size_t start = 0; start < text.size(); ++line) {
        const auto line_break = text.find('\n', start);
        const std::size_t end = line_break == std::string_view::npos ? text.size() : line_break + 1;
        const auto whole = text.substr(start, end - start);
        if (!open.Any() && IsGo(whole)) {
            Close();
            batch = text.substr(end, 0);
            batch_line = line + 1;
        } else {
            open.Read(whole);
            batch = std::string_view(batch.data(), batch.size() + whole.size());
        }
        start = end;
    }
    Close();
    return batches;
}

}  // namespace LumoConnection
