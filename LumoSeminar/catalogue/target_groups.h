#pragma once

#include <LumoSeminar/frame/collection.h>
#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/reference.h>
#include <LumoSeminar/frame/types.h>
#include <LumoSeminar/frame/variant.h>

namespace LumoSeminar {

/// The names of a target group: columns of sysIData_Zielgruppen.
struct SemZielgruppeRow {
    Text Kurz;
    Text Bezeichnung;
};

/// A row of Sem_ZielInhalt_IT.
struct SemZielInhaltRow {
    Int32 ZielInhaltID = 0;
    Text Ziel;
    Text Inhalt;
};

/// A target group of a seminar as it is shown, read by Init.
class clsSemZielgruppe final : public Object {
  public:
    /// Short name. A let changes the object only.
    Text BezeichungKurz();
    void BezeichungKurz(Text value);
    Text Bezeichung();
    void Bezeichung(Text value);

    /// Reads the names. One statement; none where the connection is closed and cannot be opened. The result is true in
    /// either case, and without a row, and the names then stay as they were. Raises what the connection raises where it
    /// refuses the statement.
    Bool Init(Int32 p_lngSemID, Int32 p_lngZielgruppeID, const Ref<DataSession>& p_objAdoDirect);

  private:
    SemZielgruppeRow row_;
};

/// The target groups of a seminar in the order of the server, read by Init. A group that has no names is listed with
/// empty ones.
class colSemZielgruppen final : public Object {
  public:
    /// Lists the groups and reads them. One statement, and one for each group; none where the connection is closed and
    /// cannot be opened. The result is true in either case. A second call adds to what is there. Raises what the
    /// connection raises where it refuses a statement.
    Bool Init(Int32 p_lngSemID, const Ref<DataSession>& p_objAdoDirect);

    /// By position from 1; the entries have no keys. Raises position out of range (9), key not found (5) for a text.
    Ref<clsSemZielgruppe> Item(const Variant& Index);

    Int32 Count();

    Enumerator<clsSemZielgruppe> NewEnum();

  private:
    Ref<Collection<clsSemZielgruppe>> p_colItems = New<Collection<clsSemZielgruppe>>();
};

/// What a seminar is for and what is taught in it, read by Init.
class clsSemZielInhalt final : public Object {
  public:
    /// The key of the row that was read; 0 where there was none.
    Int32 ZielInhaltID();
    Text Ziel();
    Text Inhalt();

    /// Reads the texts. One statement; none where the connection is closed and cannot be opened. The result is true in
    /// either case, and without a row, and everything then stays as it was. Raises what the connection raises where it
    /// refuses the statement.
    Bool Init(Int32 p_lngZielInhaltID, const Ref<DataSession>& p_objAdoDirect);

  private:
    SemZielInhaltRow row_;
};

}  // namespace LumoSeminar
