#pragma once

#include <string>
#include <utility>
#include <vector>

#include <LumoConnection/stored_rows.h>
#include <LumoSeminar/frame/data_session.h>

/// For tests: a row set that says of itself what it is told to say, and a session that gives one.
namespace test_support {

/// One row. It stands on it all the while, and counts how often it is closed.
class RowsAt final : public LumoConnection::StoredRows {
  public:
    RowsAt(bool bof, bool eof, std::vector<std::string> columns, const std::vector<LumoSeminar::Variant>& row)
        : StoredRows(std::move(columns)), bof_(bof), eof_(eof) {
        for (const auto& value : row) Append(value);
    }
    LumoSeminar::Bool Eof() override { return eof_; }
    LumoSeminar::Bool Bof() override { return bof_; }
    void MoveNext() override { eof_ = true; }
    void Close() override { ++closes; }

    int closes = 0;

  private:
    LumoSeminar::Bool bof_;
    LumoSeminar::Bool eof_;
};

/// A session whose connection gives one row set, whatever is asked.
class OneRowSet final : public LumoSeminar::DataSession {
    using Bool = LumoSeminar::Bool;
    using Text = LumoSeminar::Text;
    using Int32 = LumoSeminar::Int32;
    using Rows = LumoSeminar::Ref<LumoSeminar::RecordSet>;

  public:
    explicit OneRowSet(Rows rows) : rows_(std::move(rows)) {}
    LumoSeminar::Ref<LumoSeminar::Connection> AdoConnection() override { return LumoSeminar::New<Face>(rows_); }
    Bool Connect(const Text&, const Text&, const Text&, Int32) override { return false; }
    Rows Recordset() override { return nullptr; }
    Bool OpenSelect(const Text&) override { return false; }
    Bool ExecuteSql(const Text&) override { return false; }
    LumoSeminar::Variant LookupValue(const Text&, const Text&, const Text&) override {
        return LumoSeminar::Variant::Null();
    }
    Text LastErrorText() override { return {}; }

  private:
    class Face final : public LumoSeminar::Connection {
      public:
        explicit Face(Rows rows) : rows_(std::move(rows)) {}
        Int32 State() override { return kOpen; }
        void Open(const Text&, const Text&, const Text&, Int32) override {}
        Rows Execute(const Text&, Int32) override { return rows_; }

      private:
        Rows rows_;
    };

    Rows rows_;
};

}  // namespace test_support
