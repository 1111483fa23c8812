#include <LumoConnection/embedded/parser_core.h>
#include <LumoConnection/embedded/refusal.h>

namespace LumoConnection::Embedded {

Statement::Node Parser::ParseCreate() {
    const std::size_t start = Place();
    Expect(Keyword::kCreate);
    batch_.changes_schema = true;
    if (At(Keyword::kTable)) return ParseCreateTable(start);
    const bool unique = Take(Keyword::kUnique);
    SkipClustered();
    if (At(Keyword::kIndex)) return ParseCreateIndex(start, unique);
    if (unique) RefuseHere();
    if (Ahead().kind != TokenKind::kName) RefuseHere();
    RefuseNotCovered("CREATE " + std::string(Ahead().text), Place());
}

void Parser::SkipClustered() {
    if (!Take(Keyword::kClustered)) Take(Keyword::kNonclustered);
}

CreateTableStatement Parser::ParseCreateTable(std::size_t start) {
    CreateTableStatement create;
    Expect(Keyword::kTable);
    create.table = DottedTableName();
    Expect(TokenKind::kOpen);
    do {
        if (At(TokenKind::kClose) && !create.elements.columns.empty()) break;
        ParseTableElement(create.elements);
    } while (Take(TokenKind::kComma));
    const std::size_t end = Place() + 1;
    Expect(TokenKind::kClose);
    create.text = text_.substr(start, end - start);
    return create;
}

bool Parser::AtTableConstraint() const {
    return At(Keyword::kConstraint) || At(Keyword::kPrimary) || At(Keyword::kUnique) || At(Keyword::kForeign) ||
           At(Keyword::kCheck);
}

void Parser::ParseTableElement(TableElements& elements) {
    if (!AtTableConstraint()) return ParseColumn(elements);
    std::string name;
    if (Take(Keyword::kConstraint)) name = Name();
    ParseTableConstraint(elements, std::move(name));
}

void Parser::ParseTableConstraint(TableElements& elements, std::string name) {
    if (Take(Keyword::kForeign)) {
        Expect(Keyword::kKey);
        std::vector<std::string> columns;
        NameList(columns);
        elements.foreign_keys.push_back(ParseReferences(std::move(name), std::move(columns)));
        return;
    }
    if (At(Keyword::kCheck)) {
        elements.checks.push_back(ParseCheck(std::move(name)));
        return;
    }
    if (At(Keyword::kDefault)) RefuseNotCovered("A DEFAULT constraint outside its column", Place());
    KeyDefinition key;
    key.name = std::move(name);
    key.primary = Take(Keyword::kPrimary);
    Expect(key.primary ? Keyword::kKey : Keyword::kUnique);
    SkipClustered();
    ParseKeyColumns(key.columns, nullptr);
    elements.keys.push_back(std::move(key));
}

void Parser::ParseKeyColumns(std::vector<std::string>& columns, std::vector<bool>* descending) {
    Expect(TokenKind::kOpen);
    do {
        columns.push_back(Name());
        const bool down = Take(Keyword::kDesc);
        if (!down) Take(Keyword::kAsc);
        if (descending) descending->push_back(down);
    } while (Take(TokenKind::kComma));
    Expect(TokenKind::kClose);
}

void Parser::ParseColumn(TableElements& elements) {
    ColumnDefinition column;
    column.place = Place();
    column.name = Name();
    if (At(Keyword::kAs)) RefuseNotCovered("A computed column", Place());
    column.type = ParseType();
    while (true) {
        std::string name;
        const bool named = Take(Keyword::kConstraint);
        if (named) name = Name();
        if (Take(Keyword::kNot)) {
            Expect(Keyword::kNull);
            column.nullable = false;
        } else if (Take(Keyword::kNull)) {
            column.nullable = true;
        } else if (At(Keyword::kDefault)) {
            column.default_value = ParseDefault(std::move(name));
        } else if (At(Keyword::kPrimary) || At(Keyword::kUnique)) {
            KeyDefinition key;
            key.name = std::move(name);
            key.primary = Take(Keyword::kPrimary);
            Expect(key.primary ? Keyword::kKey : Keyword::kUnique);
            SkipClustered();
            key.columns.push_back(column.name);
            elements.keys.push_back(std::move(key));
        } else if (At(Keyword::kReferences) || Take(Keyword::kForeign)) {
            if (!At(Keyword::kReferences)) Expect(Keyword::kKey);
            elements.foreign_keys.push_back(ParseReferences(std::move(name), {column.name}));
        } else if (At(Keyword::kCheck)) {
            elements.checks.push_back(ParseCheck(std::move(name)));
        } else if (At(Keyword::kCollate)) {
            RefuseNotCovered("COLLATE", Place());
        } else if (At(Keyword::kIdentity)) {
            RefuseNotCovered("IDENTITY", Place());
        } else {
            if (named) RefuseHere();
            break;
        }
    }
    elements.columns.push_back(std::move(column));
}

ForeignKeyDefinition Parser::ParseReferences(std::string name, std::vector<std::string> columns) {
    ForeignKeyDefinition key;
    key.name = std::move(name);
    key.columns = std::move(columns);
    Expect(Keyword::kReferences);
    key.table = DottedTableName();
    if (At(TokenKind::kOpen)) NameList(key.table_columns);
    while (Take(Keyword::kOn)) {
        const bool on_delete = Take(Keyword::kDelete);
        if (!on_delete) Expect(Keyword::kUpdate);
        if (TakeWord("no")) {
            if (!TakeWord("action")) RefuseHere();
        } else if (Take(Keyword::kCascade)) {
            (on_delete ? key.delete_cascades : key.update_cascades) = true;
        } else {
            RefuseNotCovered("This action of a foreign key", Place());
        }
    }
    return key;
}

CheckDefinition Parser::ParseCheck(std::string name) {
    CheckDefinition check;
    check.name = std::move(name);
    Expect(Keyword::kCheck);
    Expect(TokenKind::kOpen);
    own_literals_ = true;
    check.condition = ParseCondition();
    own_literals_ = false;
    Expect(TokenKind::kClose);
    return check;
}

DefaultDefinition Parser::ParseDefault(std::string name) {
    Expect(Keyword::kDefault);
    const std::size_t start = Place();
    own_literals_ = true;
    ParseSum();
    own_literals_ = false;
    const Token& last = tokens_.tokens[at_ - 1];
    // The end of the last token: quotes and brackets are not part of its text.
    Scanner scanner(text_.substr(last.offset));
    scanner.Next();
    return {std::move(name), std::string(text_.substr(start, last.offset + scanner.Position() - start))};
}

CreateIndexStatement Parser::ParseCreateIndex(std::size_t start, bool unique) {
    CreateIndexStatement create;
    create.unique = unique;
    Expect(Keyword::kIndex);
    create.name = Name();
    Expect(Keyword::kOn);
    create.table = TableName();
    ParseKeyColumns(create.columns, &create.descending);
    create.text = text_.substr(start, tokens_.tokens[at_ - 1].offset + 1 - start);
    return create;
}

AlterTableStatement Parser::ParseAlter() {
    AlterTableStatement alter;
    const std::size_t start = Place();
    batch_.changes_schema = true;
    Expect(Keyword::kAlter);
    if (!At(Keyword::kTable)) RefuseNotCovered("ALTER " + std::string(Ahead().text), Place());
    Expect(Keyword::kTable);
    alter.table = TableName();
    if (At(Keyword::kWith)) RefuseNotCovered("ALTER TABLE WITH", Place());
    if (!At(Keyword::kAdd)) {
        if (Ahead().kind != TokenKind::kName) RefuseHere();
        RefuseNotCovered("ALTER TABLE " + std::string(Ahead().text), Place());
    }
    Expect(Keyword::kAdd);
    do {
        ParseTableElement(alter.added);
    } while (Take(TokenKind::kComma));
    const Token& last = tokens_.tokens[at_ - 1];
    Scanner scanner(text_.substr(last.offset));
    scanner.Next();
    alter.text = text_.substr(start, last.offset + scanner.Position() - start);
    return alter;
}

Statement::Node Parser::ParseDrop() {
    batch_.changes_schema = true;
    Expect(Keyword::kDrop);
    if (Take(Keyword::kTable)) {
        if (At(Keyword::kIf)) RefuseNotCovered("DROP TABLE IF EXISTS", Place());
        DropTableStatement drop;
        do {
            drop.tables.push_back(DottedTableName());
        } while (Take(TokenKind::kComma));
        return drop;
    }
    if (Take(Keyword::kIndex)) {
        DropIndexStatement drop;
        drop.name = Name();
        if (Take(TokenKind::kPoint)) {
            drop.table = std::move(drop.name);
            drop.name = Name();
        } else {
            Expect(Keyword::kOn);
            drop.table = DottedTableName();
        }
        return drop;
    }
    if (Ahead().kind != TokenKind::kName) RefuseHere();
    RefuseNotCovered("DROP " + std::string(Ahead().text), Place());
}

Type Parser::ParseType(std::int32_t default_length) {
    struct Known {
        std::string_view name;
        Kind kind;
    };
    static constexpr Known kTypes[] = {
        {"int", Kind::kInt},           {"integer", Kind::kInt},     {"smallint", Kind::kSmallint},
        {"tinyint", Kind::kTinyint},   {"bit", Kind::kBit},         {"money", Kind::kMoney},
        {"real", Kind::kReal},         {"float", Kind::kFloat},     {"datetime", Kind::kDatetime},
        {"char", Kind::kChar},         {"varchar", Kind::kVarchar}, {"nchar", Kind::kNchar},
        {"nvarchar", Kind::kNvarchar},
    };
    static constexpr std::string_view kServerTypes[] = {
        "bigint", "decimal",   "numeric",    "smallmoney",     "smalldatetime",
        "date",   "time",      "datetime2",  "datetimeoffset", "text",
        "ntext",  "image",     "binary",     "varbinary",      "uniqueidentifier",
        "xml",    "timestamp", "rowversion", "sql_variant",
    };
    const std::size_t place = Place();
    for (const Known& known : kTypes) {
        if (AtWord(known.name) || (Ahead().kind == TokenKind::kQuoted && Ahead().text == known.name)) {
            ++at_;
            Type type{known.kind};
            if (IsText(type.kind)) {
                constexpr std::int32_t kMostBytes = 8000;
                constexpr std::int32_t kMostUnicode = 4000;
                type.length = default_length;
                if (Take(TokenKind::kOpen)) {
                    if (TakeWord("max")) {
                        type.length = Type::kNoLimit;
                    } else {
                        type.length = FixedNumber();
                        const std::int32_t most = IsUnicode(type.kind) ? kMostUnicode : kMostBytes;
                        if (type.length < 1 || type.length > most) {
                            Refuse(131,
                                   "The size (" + std::to_string(type.length) + ") given to the type '" +
                                       std::string(known.name) + "' exceeds the maximum allowed (" + std::to_string(most) + ").",
                                   place);
                        }
                    }
                    Expect(TokenKind::kClose);
                }
            } else if (type.kind == Kind::kFloat && Take(TokenKind::kOpen)) {
                constexpr std::int32_t kDigitsOfReal = 24;
                if (FixedNumber() <= kDigitsOfReal) type.kind = Kind::kReal;
                Expect(TokenKind::kClose);
            }
            return type;
        }
    }
    for (const std::string_view name : kServerTypes) {
        if (AtWord(name)) RefuseNotCovered("The type " + std::string(name), place);
    }
    const std::string name = Name();
    Refuse(Refused::kUnknownType, "Cannot find data type " + name + ".", place);
}

}  // namespace LumoConnection::Embedded
