#pragma once

#include <string>

#include "frontend/cli_test.h"
#include "frontend/usage_test.h"

namespace frontend {

/// The sample, where nothing is decided yet and nobody else may decide than kFirst and kSecond.
class ApprovalCli : public Cli {
  protected:
    static constexpr const char* kFirst = "11";
    static constexpr const char* kSecond = "12";
    static constexpr const char* kNobody = "13";

    static constexpr const char* kNoProcess = "Kein Vorgang";
    static constexpr const char* kAtFirst = "Stufe 1 von 2: Entscheidung durch Vorgesetzte";
    static constexpr const char* kAtSecond = "Stufe 2 von 2: Entscheidung durch Weiterbildung";
    static constexpr const char* kApproved = "Genehmigt";
    static constexpr const char* kRejected = "Abgelehnt";

    ApprovalCli() {
        UseSample();
        Sql("delete from Sem_ProzessSchritt_IT delete from Sem_ProzessStufe_IT delete from Sem_ProzessRecht_IT "
            "insert into Sem_ProzessRecht_IT (ModulNr, Stufe, UserID) values (7, 1, 11), (7, 2, 12), (8, 1, 11), (8, 2, 12)");
    }

    void Sql(const std::string& text) const {
        const auto done = Run({"sql", text});
        ASSERT_EQ(done.code, 0) << done.err;
    }

    int Count(const std::string& table, const std::string& where = "1 = 1") const {
        return Json({"sql", "select count(*) as n from " + table + " where " + where})[0]["n"];
    }

    /// Kind, stage, user of each step of a subject, the steps parted by " | ".
    std::string Steps(int module, int key) const {
        std::string all;
        for (const auto& step :
             Json({"sql", "select Art, Stufe, UserID from Sem_ProzessSchritt_IT where ModulNr = " + std::to_string(module) +
                              " and SchluesselID = " + std::to_string(key) + " order by SchrittNr"})) {
            const auto number = [&](const char* name) {
                return step[name].is_null() ? "-" : std::to_string(step[name].get<int>());
            };
            all += (all.empty() ? "" : " | ") + step["Art"].get<std::string>() + " " + number("Stufe") + " " + number("UserID");
        }
        return all;
    }

    static Arguments With(Arguments arguments, const Arguments& more) {
        arguments.insert(arguments.end(), more.begin(), more.end());
        return arguments;
    }
};

/// Told on standard error with exit code 1, and nothing else.
inline void ExpectRefused(const Outcome& done, const std::string& told) {
    EXPECT_EQ(done.code, 1) << told;
    EXPECT_EQ(done.out, "");
    EXPECT_EQ(done.err, "lumoseminar: " + told + "\n");
}

}  // namespace frontend
