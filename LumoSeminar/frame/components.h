#pragma once

#include <functional>

#include <LumoSeminar/frame/data_session.h>
#include <LumoSeminar/frame/types.h>

namespace LumoSeminar {

/// Works on one open approval process.
class InfoDispatcher : public Object {
  public:
    virtual void ConnectionString(const Text& value) = 0;
    virtual Variant Verbinden(Int32 kind, const Text& first, const Text& second) = 0;

    /// Binds the object to the process of a module and a key.
    virtual void Initialisieren(Int32 module_number, Int32 key, Int32 client, Int32 person) = 0;

    /// Records one consent or approval by that user.
    virtual void Zustimmen(Int32 p_lngUserID, const Text& remark) = 0;
    /// Records one rejection by that user.
    virtual void Ablehnen(Int32 p_lngUserID, const Text& remark) = 0;
    /// Drops the process of the bound key.
    virtual void Loeschen() = 0;

    /// Whether this user may decide in this process.
    virtual Bool BenutzerHatRechte(Int32 p_lngUserID) = 0;
    /// The state of the process in words.
    virtual Text ProzessStatusText() = 0;
    virtual Int32 ProzessStatus() = 0;

    /// The module number given to Initialisieren.
    virtual Int32 ModulNr() = 0;
    /// The key given to Initialisieren.
    virtual Int32 SchluesselID() = 0;
};

/// Opens approval processes.
class InfoStarter : public Object {
  public:
    virtual void ConnectionString(const Text& value) = 0;
    virtual Variant Verbinden(Int32 kind, const Text& first, const Text& second) = 0;

    /// Opens the process of a module and a key on behalf of that user.
    virtual Variant Starten(Int32 module_number, Int32 key, Int32 p_lngUserID) = 0;
};

/// Defaults of the login, kept once per thread. Each of the two lookups gives one text for an index. Both texts of
/// index 2 go to Verbinden; the first is also entered as the maker of a new enrolment, and goes into the statement as
/// it stands: Quoted(name) where it may hold a single quote.
class SessionDefaults : public Object {
  public:
    virtual Text FirstText(Int32 index) = 0;
    virtual Text SecondText(Int32 index) = 0;
};

/// Makers of the objects that the library creates but does not contain. Those of a thread are set by its front end or
/// by LumoConnection::Install(); a maker that is not set raises 429 when it
/// is needed: each thread sets its own.
struct Components {
    std::function<Ref<DataSession>()> data_session;
    std::function<Ref<InfoDispatcher>()> info_dispatcher;
    std::function<Ref<InfoStarter>()> info_starter;
    std::function<Ref<SessionDefaults>()> session_defaults;
};

/// Sets the makers of the calling thread.
void SetComponents(Components components);

/// New objects of the calling thread's makers. Raise 429 where the maker is not set or makes nothing.
Ref<DataSession> MakeDataSession();
Ref<InfoDispatcher> MakeInfoDispatcher();
Ref<InfoStarter> MakeInfoStarter();
Ref<SessionDefaults> MakeSessionDefaults();

}  // namespace LumoSeminar
