// The object that the kit is about: the registered one, or the one beside the kit.

var serverName = "Mirovel.Mirovel";
var server = {place: "", registered: false, how: ""};
var activation = null;

/// Where the DLL may lie, seen from the kit: in an installation or archive, and beside the scripts.
function libraryBeside(folder) {
    var places = ["..\\bin", ".", "bin", ".."];
    for (var i = 0; i < places.length; i++) {
        var place = fileSystem.GetAbsolutePathName(joined(joined(folder, places[i]), "mirovelcom.dll"));
        if (fileSystem.FileExists(place) && fileSystem.FileExists(place.replace(/\.dll$/, ".manifest"))) {
            return place;
        }
    }
    return "";
}

function activationBy(manifest) {
    var context = new ActiveXObject("Microsoft.Windows.ActCtx");
    context.Manifest = manifest;
    return context;
}

/// Finds the DLL. The one beside the kit is used where none is registered, or where it is asked for.
function findServer(folder, prefersBeside) {
    var beside = libraryBeside(folder);
    var place = placeOfClass(serverName, "InprocServer32");
    server.registered = place !== "";
    if (server.registered && !prefersBeside) {
        server.place = place;
        server.how = "registered";
        return;
    }
    if (!beside) {
        throw new Error(1, "There is no DLL: none is registered, and none lies in the folder bin beside the kit's folder. " +
            "Unpack the whole archive, or install it, and begin again.");
    }
    server.place = beside;
    server.how = "by manifest";
    activation = activationBy(beside.replace(/\.dll$/, ".manifest"));
}

function newObject() {
    return activation ? activation.CreateObject(serverName) : new ActiveXObject(serverName);
}

var textKind = 1, numberKind = 2, flagKind = 3;
var modes = [
    {name: "counting", compose: 0},
    {name: "typed", compose: 1},
    {name: "fragments", compose: 2}
];

/// An object with a Word of its own that writes in the mode; the settings hold for this object alone.
function startObject(mode, template) {
    var object = newObject();
    object.overrideRegistry("Word", "OwnInstance", "1", flagKind);
    object.overrideRegistry("Word", "WordTemplateName", template, textKind);
    object.overrideRegistry("Word", "Compose", String(mode.compose), numberKind);
    object.overrideRegistry("Word", "TOCLevel", "9", numberKind);
    object.start();
    return object;
}

function stopObject(object) {
    try {
        object.stop();
    } catch (failure) {
    }
}
