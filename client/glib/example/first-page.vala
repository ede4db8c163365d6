// SPDX-License-Identifier: Apache-2.0
// first-page DOCUMENT: tells the size of a document at its first view.
async void show(Lectern.Document document, MainLoop loop) {
    try {
        yield document.open_async(null, null);
        Lectern.Rectangle damage;
        yield document.paint_async(null, out damage);
        print("%s: %d x %d\n", document.title, damage.width, damage.height);
        if (yield document.search_async("the", Lectern.SearchFlags.WHOLE_WORDS, null)) {
            print("%d hits\n", document.n_hits);
        }
        foreach (unowned var line in yield document.get_text_async(null)) {
            print("%d: %s\n", line.place.y, line.text);
        }
    } catch (Lectern.DocumentError error) {
        printerr("no document: %s\n", error.message);
    } catch (Error error) {
        printerr("%s\n", error.message);
    }
    loop.quit();
}

int main(string[] arguments) {
    try {
        Lectern.Service.isolate();
        var service = Lectern.Service.connect_sync(null);
        var document = new Lectern.Document(service, File.new_for_commandline_arg(arguments[1]));
        var loop = new MainLoop();
        show.begin(document, loop);
        loop.run();
    } catch (Error error) {
        printerr("%s\n", error.message);
        return 1;
    }
    return 0;
}
