#include "schema.h"

#include <fstream>
#include <sstream>

#include <LumoConnection/batches.h>
#include <LumoConnection/embedded/session.h>

#include "raw.h"

namespace bench {

using namespace LumoSeminar;

Ref<DataSession> SchemaDatabase() {
    auto session = New<LumoConnection::EmbeddedSession>();
    if (!session->Connect("Provider=Embedded;Data Source=:memory:", "", "", 30)) Stop(session->LastErrorText());
    std::ifstream file(LUMOSEMINAR_SCHEMA);
    std::ostringstream text;
    text << file.rdbuf();
    const auto batches = LumoConnection::SplitBatches(text.str());
    if (batches.empty()) Stop("There is no schema in " LUMOSEMINAR_SCHEMA ".");
    for (const auto& batch : batches) Execute(*session, batch.text);
    return session;
}

void Execute(DataSession& session, const Text& sql) {
    if (!session.ExecuteSql(sql)) Stop(session.LastErrorText() + " in " + sql);
}

}  // namespace bench
