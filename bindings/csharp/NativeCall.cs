using System;

namespace Velmar
{
    /// <summary>Calls of the native library, one at a time, whose failures become exceptions.</summary>
    internal static class NativeCall
    {
        /// <summary>A call whose null is a failure.</summary>
        internal static VelmarBlock Make(string function, Func<IntPtr> call)
        {
            return Checked(function, null, Take(call));
        }

        /// <summary>A call whose null is an empty result.</summary>
        internal static VelmarBlock Take(Func<IntPtr> call)
        {
            lock (VelmarNative.Gate) return new VelmarBlock(call());
        }

        /// <summary>A reader that returns null on failure.</summary>
        internal static VelmarBlock Read(string function, string path, Func<byte[], IntPtr> read)
        {
            byte[] bytes = NativeText.Path(path);
            return Checked(function, path, Take(() => read(bytes)));
        }

        /// <summary>A reader that returns a block with a negative code on failure.</summary>
        internal static VelmarBlock Read(string function, string path, string[] words, Func<byte[], IntPtr> read)
        {
            VelmarBlock block = Read(function, path, read);
            CheckCode(function, path, words, block);
            return block;
        }

        internal static void CheckCode(string function, string path, string[] words, VelmarBlock block)
        {
            float first = block.Cursor().Peek();
            if (!(first < 0)) return;
            block.Dispose();
            throw Failure(function, path, (int)first, words);
        }

        internal static VelmarException Failure(string function, string path, int code, string[] words)
        {
            return new VelmarException(function, path, code, ErrorWords.Of(code, words));
        }

        private static VelmarBlock Checked(string function, string path, VelmarBlock block)
        {
            if (block.IsInvalid) throw Failure(function, path, 0, null);
            return block;
        }
    }

    internal static class Require
    {
        /// <summary>Throws unless lists have one length.</summary>
        internal static void SameLength(string name, params Array[] lists)
        {
            foreach (Array list in lists)
                if (list.Length != lists[0].Length) throw new ArgumentException("lists of different lengths", name);
        }
    }
}
