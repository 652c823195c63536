// Calls that the binding for C# must answer itself.
using System;
using System.IO;
using KezLib;

static class Misuse
{
    static void That(bool holds, string what)
    {
        if (!holds)
            throw new InvalidOperationException(what);
    }

    static void WithoutAnArray()
    {
        string name = "none";
        try
        {
            Routines.kezord(null, 0);
        }
        catch (ArgumentNullException refusal)
        {
            name = refusal.ParamName;
        }
        That(name == "x", "no array: " + name);
    }

    // The garbage that the callback makes must not take the delegate with it, and what it throws
    // must come out behind the library.
    static void WithACallbackThatThrows()
    {
        int status = 7, calls = 0, count;
        float[] zero = {0, 0, 0};
        bool thrown = false;
        try
        {
            Routines.kezpnl(0, 0, 0, 1, 0, 0, zero, zero, i =>
            {
                GC.Collect();
                GC.WaitForPendingFinalizers();
                if (++calls == 2)
                    throw new InvalidDataException("no such point");
                return 0;
            }, 3, 1, ref status, out count, new int[3]);
        }
        catch (InvalidDataException)
        {
            thrown = true;
        }
        That(thrown && calls == 2, "a callback that throws: " + calls + " calls");
    }

    static void WithOneEntryTooFew()
    {
        string message = "nothing";
        try
        {
            float area;
            Routines.kezapl(new float[4], new float[5], 4, out area);
        }
        catch (ArgumentException refusal)
        {
            message = refusal.Message;
        }
        That(message.StartsWith("X holds 4 of 5 entries"), message);
    }

    static void InManyCalls()
    {
        float[] two = {3, 0}, d = new float[2];
        Batch.Call("kezpds", 2, two, 4f, 0f, 0f, 0f, 0f, d);
        That(d[0] == 5 && d[1] == 4, "many calls");
        var c = new float[6];
        Batch.Call("kezpre", 2, 0f, 0f, 0f, 1f, 0f, 0f, 0f, 0f, 0f, 0f, two, 0f, c);
        That(c[2] == 3 && c[5] == 0, "three entries an item");
        object[][] wrong = {
            new object[] {two, 4f, 0f, 0f, 0f, 0f, new float[1]}, new object[] {two, 4f},
            new object[] {two, 4, 0f, 0f, 0f, 0f, d}, new object[] {two, 4f, 0f, 0f, 0f, 0f, 1f},
            new object[] {null, 4f, 0f, 0f, 0f, 0f, d}};
        foreach (object[] arguments in wrong)
        {
            bool refused = false;
            try
            {
                Batch.Call("kezpds", 2, arguments);
            }
            catch (ArgumentException)
            {
                refused = true;
            }
            That(refused, "wrong many calls");
        }
    }

    static void Main()
    {
        WithoutAnArray();
        WithACallbackThatThrows();
        WithOneEntryTooFew();
        InManyCalls();
        Console.WriteLine("refused");
    }
}
